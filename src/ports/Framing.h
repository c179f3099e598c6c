#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

/// The three delimiter texts of a record, with their "[HH]" codes not yet decoded.
struct Delimiters
{
    QString DataStart;
    /// A set of characters, each of which separates values.
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

/// Splits a text at every character of `delimiters` and drops empty parts.
QStringList SplitOnChars(const QString& text, const QString& delimiters = QStringLiteral(" ,/!|"));

/// Applies the enabled filters in a fixed order, then trims blanks at both ends.
QString FilterValue(QString value, const Filters& filters);

/// Replaces `buffer` by the text between the first start delimiter and the next end delimiter after
/// it, and splits that into filtered values. Fails with `InvalidCall` if there is no such text;
/// `buffer` is then unchanged.
/// @return the values, position 1 at element 0; empty for an empty record
QStringList ParseDataStream(QString& buffer, const Delimiters& delimiters, const Filters& filters);

/// Removes every delimiter text from `text` and splits it into filtered values, without framing.
/// Never fails.
QStringList ParseWithoutCut(QString& text, const Delimiters& delimiters, const Filters& filters);

} // namespace vantrel
