#pragma once

#include "drawing/FilledBox.h"
#include <vector>

namespace vantrel {

struct CodePattern;

/// The dots to the inch of card printers, for those that do not tell theirs, for files and for the
/// screen. Printers with finer dots have a multiple of it.
inline constexpr int CardDotsPerInch = 300;
/// The smallest module that is drawn, in twips: two dots of 300 to the inch. Smaller ones cannot be
/// relied on to be read.
inline constexpr double SmallestModule = 9.6;
/// The lowest bars that are drawn, in twips: a twentieth of an inch.
inline constexpr double LowestBars = 72;

/// A code at its place: its dark modules as boxes in twips.
struct CodeLayout
{
    /// Side of a module in twips; 0 if the code does not fit.
    double Module = 0;
    std::vector<FilledBox> Boxes;
};

/// Lays a code out in the middle of a place, with its quiet zone inside it. Modules and their
/// places are whole dots, since a module that ends within a dot is a dot too wide or too narrow,
/// and as large as fits. The bars of a linear code are as high as the place.
/// @param dotsPerInch  of the printer; `CardDotsPerInch` if it is 0
CodeLayout LayOutCode(const CodePattern& pattern, const FilledBox& place, int dotsPerInch);

} // namespace vantrel
