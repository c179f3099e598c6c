#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <vector>

namespace vantrel {

class CardDocument;
class CardObject;

/// @file Where a new object goes. All lengths are in twips; nothing here fails.

/// The place of a new object: the middle of the largest free rectangle of the card that it fits in.
/// Where it fits nowhere, the place where it covers the least, and among such places the one
/// nearest to the middle of the card. What covers most of the card counts as its background, not as
/// taken. An object that is larger than the card begins at the card's edge.
/// @param taken  the boxes of the objects that are there; what lies outside the card does not count
/// @return the upper left corner, in whole twips
QPointF FreePlace(const QSizeF& card, const std::vector<QRectF>& taken, const QSizeF& object);

/// Moves an object of the document to such a place among the others.
void MoveToFreePlace(const CardDocument& document, CardObject& object);

/// The lowest number, from 1, of a value that no data field of the page shows.
std::int16_t NextFreeField(const CardDocument& document);

} // namespace vantrel
