#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace vantrel {

class InputBuffer;

/// @file The last raw input as an operator reads it.

/// @return for each character "[", its code in the code page in upper-case hexadecimal without
/// leading zero, "]" and two blanks
QString HexText(const QString& raw);

/// Longest row in which a text box gets its text. A longer line costs it seconds to lay out.
inline constexpr qsizetype LongestViewRow = 4096;

/// A text cut into rows for a text box.
struct ViewRows
{
    /// Rows joined by line feeds.
    QString Text;
    /// Per row whether it goes on with the line of the row before it, where the text has no line
    /// end.
    std::vector<bool> GoesOn;
};

/// Cuts a text at its line ends (CR, LF, or both together), and lines above `LongestViewRow` behind
/// a blank where they have one.
ViewRows CutIntoRows(const QString& text);

/// Throws away the characters that are no record yet, a stuck partial record among them. The last
/// raw text stays.
void ClearInput(InputBuffer& input);

} // namespace vantrel
