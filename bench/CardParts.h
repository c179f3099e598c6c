#pragma once

#include "BareCard.h"
#include <QImage>
#include <vector>

namespace vantrel::bench {

/// Ten texts in three fonts, five labels and five values; the values differ from card to card as a
/// host's do.
std::vector<TextOnCard> Texts(int card);

/// As noisy as a photo, so that nothing about it packs well by chance. Size in pixels.
QImage Photo(int width, int height);

} // namespace vantrel::bench
