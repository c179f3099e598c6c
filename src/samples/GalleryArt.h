#pragma once

#include <QImage>

namespace vantrel {

/// @file Back images of the gallery's cards, drawn on each call: the size of a card at 300 dots to
/// the inch, in portrait for the badge.

/// The back image of the staff badge.
QImage DrawBadge();
QImage DrawGiftFront();
/// Black at the position of the stripe, so that stripe text on the page is not visible in a PDF.
QImage DrawGiftBack();
QImage DrawLibrary();
QImage DrawPassFront();
QImage DrawPassBack();
QImage DrawTransport();

} // namespace vantrel
