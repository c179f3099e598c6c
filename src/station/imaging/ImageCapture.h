#pragma once

#include "drawing/Picture.h"
#include <QRect>
#include <QSettings>
#include <QSize>
#include <memory>

namespace vantrel {

class CardDocument;
class Session;

/// Twips per pixel of the screen that shows the capture dialog.
struct ScreenScale
{
    double TwipsPerPixelX = 15;
    double TwipsPerPixelY = 15;
};

/// The user's own settings of the capture dialog.
std::unique_ptr<QSettings> CaptureSettings();

/// The logic of the capture dialog: how it shows the raw picture and which part it uses.
class ImageCapture
{
public:
    /// Reads the user's settings and computes the viewport. Invalid settings are skipped.
    ImageCapture(Session& session, ScreenScale scale, std::unique_ptr<QSettings> settings);

    /// The flash mode in the user's settings, as read at the opening and again before each later
    /// exposure. If it is not set, it is 0 at the opening and 4 later.
    int FlashModeAtOpening() const { return m_flashMode; }
    int ReadFlashMode();
    /// Whether the live viewport is off.
    bool Preview() const { return m_preview; }
    float Level() const { return m_level; }
    /// Size of the viewport: in twips twice that of the largest camera object, and in pixels with
    /// width and height factors swapped.
    QSize ViewportTwips() const { return m_viewportTwips; }
    QSize ViewportPixels() const { return m_viewportPixels; }

    /// Sets the raw picture.
    void TakeRawPicture(const Picture& picture);
    /// Change the zoom level or reset it.
    void ZoomIn();
    void ZoomOut();
    void ResetZoom();

    /// The raw picture scaled for a control of the given size in twips at the present zoom level,
    /// which is first raised to at least 1. Empty without a raw picture, or if the result would be
    /// too large.
    QImage Shown(QSize controlTwips);
    /// Maximum of the scroll bars in hundredths of a millimetre: half the raw picture's height for
    /// the horizontal one, half its width for the vertical one. Fail with `Overflow` beyond 16
    /// bits.
    int HorizontalMaximum() const;
    int VerticalMaximum() const;

    /// A rectangle of the viewport's size around a point of the screen, moved to lie on the
    /// desktop.
    QRect AimAt(QPoint pointer, QRect desktop) const;
    /// The same rectangle in the coordinates of the shown picture. The result is not used; the
    /// point is written to the logging category "vantrel.camera".
    QRect SourceAt(QPointF pointerTwips, QSize controlTwips, QSize pictureHundredths) const;

    /// Stores the cropped picture as the camera image and sets it on the open layout's camera
    /// objects.
    void Accept(const QImage& cutOut);
    /// Stores the zoom level for the next opening. The positions of the scroll bars are stored too,
    /// but not read; they always start at 0.
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

/// Sets the picture of all camera objects of the document.
void SetCamImages(CardDocument& document, const Picture& picture);

} // namespace vantrel
