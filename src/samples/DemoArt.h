#pragma once

#include <QImage>

namespace vantrel {

/// @file The pictures of the demonstration layouts, drawn when they are asked for.

/// Back images of the member card's front and back: a whole card at 300 dots to the inch.
QImage DrawCardFront();
QImage DrawCardBack();
/// A portrait of nobody, three wide to four high.
QImage DrawPortrait();

} // namespace vantrel
