#pragma once

#include "base/Color.h"
#include "card/LayoutParamsRecord.h"
#include "printers/Printer.h"
#include <span>

/// The kinds of rows in sample layouts. Lengths are twips on a card of 4860 by 3060.
namespace vantrel::demo {

enum class Align { Left = 0, Right = 1, Centre = 2 };
enum class Weight { Regular, Bold };
enum class Digit { None, Mod10, Codabar };

/// Position in twips and appearance of a text.
struct Place
{
    int Left;
    int Top;
    int Width;
    int Height;
    double Points;
    Weight Boldness;
    ColorValue Color;
    Align Alignment;
};

/// A static text.
struct TextRow
{
    const char* Layout;
    int Page;
    const char* Text;
    Place At;
};

/// A data field.
struct FieldRow
{
    const char* Layout;
    int Page;
    int Field;
    const char* Prefix;
    Digit CheckDigit;
    Place At;
};

/// An automatic number.
struct NumberRow
{
    const char* Layout;
    int Page;
    const char* Start;
    Place At;
};

/// An image from a file.
struct ImageRow
{
    const char* Layout;
    int Page;
    const char* Picture;
    int Left;
    int Top;
    int Width;
    int Height;
};

/// The parameters of a page.
struct PageRow
{
    const char* Layout;
    int Page;
    bool AutoSpool;
    const char* BackImage;
    const char* Track1;
    const char* Track2;
    const char* Track3;
    int Orientation = OrientationLandscape;
    /// Most printer types print the stripe as text on the page, which is visible in a PDF.
    int PrinterType = PrinterTypeCode::Plain;
};

/// The rows of a set of layouts.
struct Samples
{
    std::span<const ImageRow> Images;
    std::span<const TextRow> Texts;
    std::span<const FieldRow> Fields;
    std::span<const NumberRow> Numbers;
    std::span<const PageRow> Pages;
};

} // namespace vantrel::demo
