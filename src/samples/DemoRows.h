#pragma once

#include "base/Color.h"
#include "card/LayoutParamsRecord.h"
#include "printers/Printer.h"
#include <span>

/// The kinds of rows that sample layouts are made of. Lengths are twips on a card of 4860 by 3060.
namespace vantrel::demo {

enum class Align { Left = 0, Right = 1, Centre = 2 };
enum class Weight { Regular, Bold };
enum class Digit { None, Mod10, Codabar };

/// Where a text stands, in twips, and how it looks.
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

struct TextRow
{
    const char* Layout;
    int Page;
    const char* Text;
    Place At;
};

struct FieldRow
{
    const char* Layout;
    int Page;
    int Field;
    const char* Prefix;
    Digit CheckDigit;
    Place At;
};

struct NumberRow
{
    const char* Layout;
    int Page;
    const char* Start;
    Place At;
};

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
    /// Most kinds write the stripe as text on the page, which a PDF shows.
    int PrinterType = PrinterTypeCode::Plain;
};

/// A set of layouts.
struct Samples
{
    std::span<const ImageRow> Images;
    std::span<const TextRow> Texts;
    std::span<const FieldRow> Fields;
    std::span<const NumberRow> Numbers;
    std::span<const PageRow> Pages;
};

} // namespace vantrel::demo
