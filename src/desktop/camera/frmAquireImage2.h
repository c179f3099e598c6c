#pragma once

#include "station/imaging/CameraLibrary.h"
#include "station/imaging/ImageCapture.h"
#include <QDialog>

class QFrame;
class QLabel;
class QScrollBar;

namespace vantrel {

class Session;

class DesktopViewportImage;

/// The capture dialog. It shows a picture from the camera or a file, zoomed; a press of the left
/// button takes the part under the pointer for the card. It is open without blocking the station.
class frmAquireImage2 : public QDialog
{
    Q_OBJECT

public:
    frmAquireImage2(Session& session, QWidget* parent);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    QLayout* MakePicture();
    QLayout* MakeSide();
    void Connect();
    void Expose(int flashMode);
    void TakePicture();
    void Import();
    void ApplyZoom();
    void Scroll();
    void Aim(QPoint global, QPointF local);
    /// What the screen shows in the rectangle. Where the display gives no copy of its screen, the
    /// rectangle is cut from the picture.
    QImage CopyScreen(const QRect& rectangle) const;
    void Press(Qt::MouseButton button);

    Session& m_session;
    ImageCapture m_capture;
    Cam* m_camera;
    DesktopViewportImage* m_original;
    QScrollBar* m_horizontal;
    QScrollBar* m_vertical;
    QFrame* m_panel;
    QLabel* m_viewport;
    QImage m_cutOut;
    QRect m_source;
};

} // namespace vantrel
