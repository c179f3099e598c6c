#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// The kinds of bar codes.
enum class CodeKind {
    QrCode,
    DataMatrix,
    Pdf417,
    AztecCode,
    Code128,
    Code39,
    Ean13,
    Ean8,
    UpcA,
    Interleaved2Of5,
    Codabar,
};
inline constexpr int CodeKindCount = 11;

/// What is known of a kind before anything is encoded.
struct CodeKindRow
{
    CodeKind Kind;
    /// Such as "QR Code".
    QLatin1StringView Name;
    /// The kind's number in libzint.
    int Symbology;
    /// Whether it is one row of bars, which may be of any height.
    bool IsLinear;
    /// The ground that has to stay free around the code, in modules, as its standard wants it.
    int QuietLeft;
    int QuietRight;
    int QuietAboveAndBelow;
    /// What it can hold, for those whose text it cannot, such as "12 or 13 digits are wanted".
    QLatin1StringView Wanted;
};

const CodeKindRow& RowOf(CodeKind kind);
/// @return the kind of exactly that name, or nothing
std::optional<CodeKind> CodeKindNamed(QStringView name);

/// Dark modules next to each other in one row of a code, in modules from its top left corner
/// without the quiet zone.
struct ModuleRun
{
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 1;
};

/// A text as a bar code.
struct CodePattern
{
    CodeKind Kind = CodeKind::QrCode;
    /// Modules without the quiet zone. The height of a linear code is 1.
    int Width = 0;
    int Height = 0;
    std::vector<ModuleRun> Runs;
    /// Why there is no code, as a sentence's part such as "EAN-13: 12 or 13 digits are wanted";
    /// empty if there is one. Never holds any part of the text.
    QString Trouble;
};

/// Makes the code of a text; the last ones made are kept. Letters beyond ASCII stand as UTF-8 in
/// the codes that can tell a reader so (QR Code, Data Matrix, PDF417, Aztec Code). Never fails; the
/// trouble is told by the pattern. For the main thread.
///
/// A code holds exactly its text, with these exceptions: the check digit of EAN and UPC may be left
/// out; an odd number of digits gets a leading zero in Interleaved 2 of 5; a text without start and
/// stop letters gets A and A in Codabar.
/// @param ratio  width by height of the place that it has to fill; PDF417 chooses its columns by it
std::shared_ptr<const CodePattern> CodePatternOf(CodeKind kind, const QString& text, double ratio);

} // namespace vantrel
