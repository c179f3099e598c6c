#include "CardParts.h"
#include <random>

namespace vantrel::bench {

std::vector<TextOnCard> Texts(int card)
{
    const Font fonts[] = {{QStringLiteral("Liberation Sans"), 8.75},
                          {QStringLiteral("Liberation Serif"), 12, true},
                          {QStringLiteral("Liberation Mono"), 10}};
    std::vector<TextOnCard> texts;
    for (int i = 0; i < 10; ++i) {
        const bool isLabel = i % 2 == 0;
        const QString text = isLabel ? QStringLiteral("Label no. %1").arg(i)
                                     : QStringLiteral("Cardholder %1").arg(card * 10 + i);
        texts.push_back({text, fonts[i % 3], 200, 1800.0 + 280 * i, isLabel});
    }
    return texts;
}

QImage Photo(int width, int height)
{
    std::mt19937 noise(42);
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int grain = static_cast<int>(noise() % 24);
            image.setPixel(x, y,
                           qRgb((x * 255 / width + grain) & 0xFF, (y * 255 / height + grain) & 0xFF,
                                96 + grain));
        }
    }
    return image;
}

} // namespace vantrel::bench
