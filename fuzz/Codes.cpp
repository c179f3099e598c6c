#include "FuzzInput.h"
#include "base/Twips.h"
#include "card/CaptionFigure.h"
#include "card/CardObject.h"
#include "drawing/CodeLayout.h"
#include "drawing/CodePattern.h"
#include <cmath>

// For any caption, kind, box and printer: the code lies inside its box on whole dots, or a notice
// says why there is none.

namespace {

using namespace vantrel;

/// Of a dot; positions are floating-point numbers.
constexpr double Tiny = 1e-3;

bool IsWhole(double number)
{
    return std::abs(number - std::round(number)) < Tiny;
}

void CheckBox(const FilledBox& box, const CardObject& label, double dot)
{
    fuzz::Require(IsWhole(box.X / dot) && IsWhole(box.Width / dot) && IsWhole(box.Y / dot) &&
                      IsWhole(box.Height / dot),
                  "modules are whole dots");
    const auto left = static_cast<double>(label.Left);
    const auto top = static_cast<double>(label.Top);
    fuzz::Require(box.X >= left - Tiny &&
                      box.X + box.Width <= left + static_cast<double>(label.Width) + Tiny,
                  "the code is as wide as its box at most");
    fuzz::Require(box.Y >= top - Tiny &&
                      box.Y + box.Height <= top + static_cast<double>(label.Height) + Tiny,
                  "the code is as high as its box at most");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const auto kind = static_cast<CodeKind>(input.Byte() % CodeKindCount);
    const int dots = 100 * (input.Byte() % 13);
    CardObject label(Family::lbl_TEXT, 1);
    label.SetFont({QStringLiteral("Barcode ") + RowOf(kind).Name, 10});
    label.Left = input.Byte();
    label.Top = input.Byte();
    label.Width = static_cast<float>(input.Byte() * 20);
    label.Height = static_cast<float>(input.Byte() * 20);
    label.SetCaption(QString::fromUtf8(input.Rest()));
    const CaptionFigure figure = FigureOf(label, dots);
    fuzz::Require(figure.Notice.empty() == figure.Trouble.isEmpty(), "a notice says why");
    if (!figure.Trouble.isEmpty())
        return 0;
    fuzz::Require(figure.Boxes.empty() == label.Caption().isEmpty(), "a caption is shown");
    for (const FilledBox& box : figure.Boxes)
        CheckBox(box, label, TwipsPerInch / (dots > 0 ? dots : CardDotsPerInch));
    return 0;
}
