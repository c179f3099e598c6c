#pragma once

#include "card/Finding.h"
#include <QSizeF>

namespace vantrel {

struct CaptionFigure;

/// Dots to the inch below which a picture looks coarse on a card.
inline constexpr double LeastPictureDots = 150;
/// The smallest module that readers and printers of all kinds manage: a quarter of a millimetre,
/// in twips.
inline constexpr double LeastReadableModule = 0.25 * 1440 / 25.4;

/// @file What can be said of one object by itself, cheap enough to be asked for each card that is
/// printed. All lengths are twips.

/// Whether the text of a label that shows no figure leaves its box or the card.
/// @param shown  the font that it is shown in, see `FittedFont`
/// @param card  the card's size; empty if it is not known
std::optional<Finding> TextFinding(const CardObject& label, const Font& shown, const QSizeF& card);

/// Whether a bar code could not be made of the caption, or its modules are too small.
/// @param figure  see `FigureOf`
std::optional<Finding> CodeFinding(const CardObject& label, const CaptionFigure& figure);

/// Whether a picture has too few pixels for the box in which it is printed. An empty one has no
/// finding.
std::optional<Finding> CoarseFinding(const Picture& picture, PictureFit fit, const QSizeF& printed,
                                     const QString& where);

} // namespace vantrel
