#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace vantrel {

class InputBuffer;

/// @file The last raw input as it is shown to the operator.

/// @return the code of each character in brackets, followed by two blanks. The code is upper-case
/// hexadecimal without a leading zero
QString HexText(const QString& raw);

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

} // namespace vantrel
