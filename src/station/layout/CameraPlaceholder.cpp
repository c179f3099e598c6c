#include "station/layout/DrawObjects.h"
#include <QImage>

namespace vantrel {

namespace {

constexpr int PlaceholderWidth = 48;
constexpr int PlaceholderHeight = 64;
constexpr QRgb PaperColor = 0xFFD8DEE4U;
constexpr QRgb FigureColor = 0xFF8A97A6U;

constexpr bool InEllipse(int x, int y, int centreX, int centreY, int radiusX, int radiusY)
{
    const int dx = (x - centreX) * radiusY;
    const int dy = (y - centreY) * radiusX;
    return dx * dx + dy * dy <= radiusX * radiusX * radiusY * radiusY;
}

/// Draws a silhouette of head and shoulders.
QImage DrawFigure()
{
    QImage image(PlaceholderWidth, PlaceholderHeight, QImage::Format_RGB32);
    for (int y = 0; y < PlaceholderHeight; ++y) {
        for (int x = 0; x < PlaceholderWidth; ++x) {
            const bool figure = InEllipse(x, y, 24, 22, 10, 13) || InEllipse(x, y, 24, 62, 20, 23);
            image.setPixel(x, y, figure ? FigureColor : PaperColor);
        }
    }
    return image;
}

} // namespace

const Picture& CameraPlaceholder()
{
    static const Picture placeholder = Picture::FromImage(DrawFigure());
    return placeholder;
}

} // namespace vantrel
