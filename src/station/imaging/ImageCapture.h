#pragma once

#include "drawing/Picture.h"
#include <QRect>
#include <QSettings>
#include <QSize>
#include <memory>

namespace vantrel {

class CardDocument;
class Session;

/// Twips to a pixel of the screen the capture dialog stands on.
struct ScreenScale
{
    double TwipsPerPixelX = 15;
    double TwipsPerPixelY = 15;
};

/// Where the capture dialog keeps what belongs to the user.
std::unique_ptr<QSettings> CaptureSettings();

/// The rules of the capture dialog: what it shows of the raw picture, and what it takes of that.
class ImageCapture
{
public:
    /// Reads the user's settings and works out the viewport. What cannot be read is passed over.
    ImageCapture(Session& session, ScreenScale scale, std::unique_ptr<QSettings> settings);

    /// The flash mode an exposure begins with; at the opening there is no default, before each
    /// later one it is 4.
    int FlashModeAtOpening() const { return m_flashMode; }
    int ReadFlashMode();
    /// Whether the live viewport is switched off.
    bool Preview() const { return m_preview; }
    float Level() const { return m_level; }
    /// Size of the viewport: in twips, twice that of the largest camera object, and in pixels, its
    /// axes crossed.
    QSize ViewportTwips() const { return m_viewportTwips; }
    QSize ViewportPixels() const { return m_viewportPixels; }

    void TakeRawPicture(const Picture& picture);
    void ZoomIn();
    void ZoomOut();
    void ResetZoom();

    /// The raw picture as it is shown in a control of that size in twips, at the present level,
    /// which is raised to 1 first. Empty without a raw picture, and at a level that makes more of
    /// it than a memory holds.
    QImage Shown(QSize controlTwips);
    /// Ends of the scroll bars: half the raw picture's height for the horizontal one, half its
    /// width for the vertical one, in hundredths of a millimetre. Fails with `Overflow` beyond 16
    /// bits.
    int HorizontalMaximum() const;
    int VerticalMaximum() const;

    /// The rectangle of the viewport's size around a point of the screen, kept on the desktop.
    QRect AimAt(QPoint pointer, QRect desktop) const;
    /// The same in the coordinates of the picture shown. Nothing takes it; the point goes to the
    /// logging category "vantrel.camera".
    QRect SourceAt(QPointF pointerTwips, QSize controlTwips, QSize pictureHundredths) const;

    /// Keeps the cut-out as the camera image and gives it to the open layout's camera objects.
    void Accept(const QImage& cutOut);
    /// Keeps the level for the next opening, and beside it where the scroll bars stand, which
    /// nothing reads back: a new opening has them at 0.
    void SaveZoom(QPoint scrolled);

private:
    Session& m_session;
    ScreenScale m_scale;
    std::unique_ptr<QSettings> m_settings;
    float m_level = 1;
    int m_flashMode = 0;
    bool m_preview = false;
    QSize m_viewportTwips;
    QSize m_viewportPixels;
};

/// Gives the picture to all camera objects of the document.
void SetCamImages(CardDocument& document, const Picture& picture);

} // namespace vantrel
