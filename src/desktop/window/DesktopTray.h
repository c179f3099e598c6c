#pragma once

#include "station/session/StationFace.h"
#include <QIcon>
#include <QObject>
#include <QPointer>
#include <QSystemTrayIcon>
#include <array>

class QWidget;

namespace vantrel {

/// The station's icon in the notification area, as `StationFace` describes it. Where there is no
/// such area, no icon is shown and nothing fails; an area that appears later gets the icon.
class DesktopTray : public QObject
{
    Q_OBJECT

public:
    DesktopTray(StationFace& face, QWidget& mainWindow);

    /// An image of the icon, rendered at each size a notification area asks for.
    static QIcon ImageOf(TrayImage image);

    /// A press on the icon: the right button brings the main window to the front and opens the file
    /// menu at the pointer, anything else does nothing.
    void OnActivated(QSystemTrayIcon::ActivationReason reason);

private:
    void Mirror();

    StationFace& m_face;
    QWidget& m_mainWindow;
    QPointer<QSystemTrayIcon> m_icon;
    /// The image that is shown; each is rendered once.
    TrayImage m_shown = TrayImage::NoHandle;
    std::array<QIcon, 3> m_images;
};

} // namespace vantrel
