#pragma once

#include <QImage>

namespace vantrel {

/// @file The pictures of the demonstration layouts, drawn on each call.

/// Back images of both sides of the member card: the size of a card at 300 dots to the inch.
QImage DrawCardFront();
QImage DrawCardBack();
/// A portrait of an invented person, with the aspect ratio 3:4.
QImage DrawPortrait();

} // namespace vantrel
