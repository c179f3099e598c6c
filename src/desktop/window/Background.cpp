#include "desktop/window/Background.h"
#include "base/Convert.h"
#include "base/DesktopColor.h"
#include "base/Skip.h"
#include <QPixmap>

namespace vantrel {

namespace {

QBrush PictureBrush(const Picture& picture, QSize size, double devicePixelRatio)
{
    const QImage stretched = picture.Image().scaled(size * devicePixelRatio, Qt::IgnoreAspectRatio,
                                                    Qt::SmoothTransformation);
    QBrush brush(stretched);
    brush.setTransform(QTransform::fromScale(1.0 / devicePixelRatio, 1.0 / devicePixelRatio));
    return brush;
}

QBrush ColorBrush(double number, const QBrush& standard)
{
    ColorValue color = 0;
    Skip("background colour", [&] { color = RoundToLong(number); });
    if (color <= 0 || color > ColorWhite)
        return standard;
    return ColorOf(color);
}

} // namespace

QBrush BackgroundBrush(const BackgroundSetting& background, QSize size, double devicePixelRatio,
                       const QBrush& standard)
{
    if (const auto* picture = std::get_if<Picture>(&background);
        picture != nullptr && picture->HasHandle() && !size.isEmpty())
        return PictureBrush(*picture, size, devicePixelRatio);
    if (const auto* number = std::get_if<double>(&background))
        return ColorBrush(*number, standard);
    return standard;
}

} // namespace vantrel
