#pragma once

#include "BareCard.h"
#include <QImage>
#include <vector>

namespace vantrel::bench {

/// Ten texts in three fonts, five labels and five values; the values differ for each card.
std::vector<TextOnCard> Texts(int card);

/// A picture with the noise of a photo, so that it does not compress unrealistically well. Size in
/// pixels.
QImage Photo(int width, int height);

} // namespace vantrel::bench
