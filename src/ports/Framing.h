#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

/// The three texts that set a record apart, as the session has them (undecoded).
struct Delimiters
{
    QString DataStart;
    /// A set: each character separates on its own.
    QString DataSeperator;
    QString DataEnd;
};

/// The nine filter flags of a session. `Null`, `CtrlC` and `CtrlBreak` are kept and shown only.
struct Filters
{
    bool Cr = false;
    bool Lf = false;
    bool Tab = false;
    bool Space = false;
    bool Esc = false;
    bool NewPage = false;
    bool Null = false;
    bool CtrlC = false;
    bool CtrlBreak = false;
};

/// Cuts a text into its runs of characters outside `delimiters`. Empty runs do not exist.
QStringList SplitOnChars(const QString& text, const QString& delimiters = QStringLiteral(" ,/!|"));

/// Applies the filters that act, in their fixed order, then trims blanks at both ends.
QString FilterValue(QString value, const Filters& filters);

/// Replaces `buffer` with the text between the first start and the next end behind it, and cuts
/// that into filtered values. Fails with `InvalidCall` where no such text can be cut; `buffer` is
/// then as it was.
/// @return the values, from position 1 at element 0; empty for a record with nothing in it
QStringList ParseDataStream(QString& buffer, const Delimiters& delimiters, const Filters& filters);

/// Removes every delimiter text from `text` and cuts it into filtered values, with no framing.
QStringList ParseWithoutCut(QString& text, const Delimiters& delimiters, const Filters& filters);

} // namespace vantrel
