#pragma once

#include <QImage>

namespace vantrel {

/// @file Back images of the gallery's cards, drawn when they are asked for: a whole card at 300
/// dots to the inch, the badge upright.

QImage DrawBadge();
QImage DrawGiftFront();
/// Black where the stripe lies, so that stripe text on the page does not show in a PDF.
QImage DrawGiftBack();
QImage DrawLibrary();
QImage DrawPassFront();
QImage DrawPassBack();
QImage DrawTransport();

} // namespace vantrel
