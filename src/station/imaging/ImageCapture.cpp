#include "station/imaging/ImageCapture.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "station/session/Session.h"
#include <QImage>
#include <QLoggingCategory>
#include <algorithm>
#include <limits>

namespace vantrel {

namespace {

const QString Application = QStringLiteral("Ostrand Vantrel 6.x");
const QString LevelKey = QStringLiteral("ZLevel");
const QString FlashModeKey = QStringLiteral("FlashMode");
const QString PreviewKey = QStringLiteral("Preview");
const QString HorizontalKey = QStringLiteral("ViewportH");
const QString VerticalKey = QStringLiteral("ViewportV");

constexpr float LowestLevel = 1.0F;
constexpr float ZoomStep = 0.1F;
constexpr int DefaultFlashMode = 4;
/// The most pixels of a zoomed picture; a larger one is not shown, to limit memory.
constexpr double MostPixels = 64e6;

Q_LOGGING_CATEGORY(cameraLog, "vantrel.camera", QtCriticalMsg)

int Rounded(double value)
{
    return RoundToLong(value);
}

/// Twice a length; fails if it does not fit 16 bits.
std::int16_t Doubled(std::int16_t length)
{
    return ToInteger(QVariant(2 * static_cast<int>(length)));
}

/// The maximum of a scroll bar, which must fit 16 bits.
int ScrollEnd(double value)
{
    const int end = Rounded(value);
    if (end > std::numeric_limits<std::int16_t>::max())
        throw Failure(FailureNumber::Overflow, QStringLiteral("Overflow"));
    return end;
}

} // namespace

std::unique_ptr<QSettings> CaptureSettings()
{
    auto settings = std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                                Application, Application);
    settings->beginGroup(QStringLiteral("Settings"));
    return settings;
}

ImageCapture::ImageCapture(Session& session, ScreenScale scale, std::unique_ptr<QSettings> settings)
    : m_session(session), m_scale(scale), m_settings(std::move(settings))
{
    const CardDocument& document = session.Document;
    Skip("viewport width", [&] { m_viewportTwips.rwidth() = Doubled(document.CamWidth); });
    Skip("viewport height", [&] { m_viewportTwips.rheight() = Doubled(document.CamHeight); });
    m_viewportTwips = m_viewportTwips.expandedTo({0, 0});
    Skip("zoom level", [&] {
        m_level = static_cast<float>(
            ToDouble(m_settings->value(LevelKey, QStringLiteral("1")).toString()));
    });
    // Width and height are swapped here, which has no effect on a screen with equal factors.
    m_viewportPixels = {Rounded(m_viewportTwips.width() / m_scale.TwipsPerPixelY),
                        Rounded(m_viewportTwips.height() / m_scale.TwipsPerPixelX)};
    Skip("flash mode", [&] { m_flashMode = ToLong(m_settings->value(FlashModeKey).toString()); });
    Skip("preview", [&] {
        m_preview = ToBoolean(m_settings->value(PreviewKey, QStringLiteral("False")).toString());
    });
}

int ImageCapture::ReadFlashMode()
{
    int mode = DefaultFlashMode;
    Skip("flash mode", [&] {
        mode =
            ToLong(m_settings->value(FlashModeKey, QString::number(DefaultFlashMode)).toString());
    });
    return mode;
}

void ImageCapture::TakeRawPicture(const Picture& picture)
{
    m_session.RawPicture = picture;
}

void ImageCapture::ZoomIn()
{
    m_level += ZoomStep;
}

void ImageCapture::ZoomOut()
{
    if (m_level > LowestLevel)
        m_level -= ZoomStep;
}

void ImageCapture::ResetZoom()
{
    m_level = LowestLevel;
}

QImage ImageCapture::Shown(QSize controlTwips)
{
    m_level = std::max(m_level, LowestLevel);
    const QImage raw = m_session.RawPicture.Image();
    if (raw.isNull())
        return {};
    const double level = m_level;
    const double width = controlTwips.width() * level / m_scale.TwipsPerPixelX;
    const double height = controlTwips.height() * level / m_scale.TwipsPerPixelY;
    if (width * height > MostPixels)
        return {};
    // Scaled from the raw picture each time, so that repeated zooming loses no quality.
    return raw.scaled({Rounded(width), Rounded(height)}, Qt::IgnoreAspectRatio,
                      Qt::SmoothTransformation);
}

int ImageCapture::HorizontalMaximum() const
{
    return ScrollEnd(m_session.RawPicture.HeightHundredths() / 2.0);
}

int ImageCapture::VerticalMaximum() const
{
    return ScrollEnd(m_session.RawPicture.WidthHundredths() / 2.0);
}

QRect ImageCapture::AimAt(QPoint pointer, QRect desktop) const
{
    const int width = m_viewportPixels.width();
    const int height = m_viewportPixels.height();
    int left = pointer.x() - Rounded(width / 2.0);
    int top = pointer.y() - Rounded(height / 2.0);
    left = std::max(left, desktop.left());
    top = std::max(top, desktop.top());
    left = std::min(left, desktop.left() + desktop.width() - width);
    top = std::min(top, desktop.top() + desktop.height() - height);
    return {left, top, width, height};
}

QRect ImageCapture::SourceAt(QPointF pointerTwips, QSize controlTwips,
                             QSize pictureHundredths) const
{
    const double across =
        controlTwips.width() / (pictureHundredths.width() / m_scale.TwipsPerPixelX);
    const double down =
        controlTwips.height() / (pictureHundredths.height() / m_scale.TwipsPerPixelY);
    const int x = Rounded(pointerTwips.x() / m_scale.TwipsPerPixelX);
    const int y = Rounded(pointerTwips.y() / m_scale.TwipsPerPixelY);
    qCDebug(cameraLog) << "pX =" << x;
    qCDebug(cameraLog) << "pY =" << y;
    return {Rounded(x * across), Rounded(y * down), Rounded(m_viewportPixels.width() * across),
            Rounded(m_viewportPixels.height() * down)};
}

void ImageCapture::Accept(const QImage& cutOut)
{
    m_session.CameraImage = Picture::FromImage(cutOut);
    SetCamImages(m_session.Document, m_session.CameraImage);
}

void ImageCapture::SaveZoom(QPoint scrolled)
{
    m_settings->setValue(HorizontalKey, QString::number(scrolled.x()));
    m_settings->setValue(VerticalKey, QString::number(scrolled.y()));
    m_settings->setValue(LevelKey, NumberText(static_cast<double>(m_level)));
}

void SetCamImages(CardDocument& document, const Picture& picture)
{
    for (const auto& object : document.Objects()) {
        if (object->IsContent() && object->IsImage() && object->Tag == Marker::Camera)
            object->Picture = picture;
    }
    document.Refresh();
}

} // namespace vantrel
