#pragma once

#include "base/InputText.h"
#include <QString>
#include <QStringList>
#include <vector>

namespace vantrel {

class InputBuffer;
class Session;

/// @file The last raw input as it is shown to the operator.

/// @return the code of each received byte in brackets, followed by two blanks. The code is
/// upper-case hexadecimal without a leading zero
/// @param encoding  the one by which the bytes were read as characters
QString HexText(const QString& raw, InputEncoding encoding = InputEncoding::CodePage1252);

/// The longest row given to a text box, in characters; it would need seconds to lay out longer
/// ones.
inline constexpr qsizetype LongestViewRow = 4096;

/// A text split into rows for a text box.
struct ViewRows
{
    /// Rows joined by line feeds.
    QString Text;
    /// For each row whether it continues the line of the row before.
    std::vector<bool> GoesOn;
};

/// Splits a text at its line ends (CR, LF or both together), and lines longer than `LongestViewRow`
/// after a blank if they contain one.
ViewRows CutIntoRows(const QString& text);

/// Discards the characters in the input buffer, such as an incomplete record. The last raw text is
/// kept.
void ClearInput(InputBuffer& input);
/// The same for a station, in which each connection may have an input of its own.
void ClearInput(Session& session);

} // namespace vantrel
