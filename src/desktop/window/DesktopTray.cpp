#include "desktop/window/DesktopTray.h"
#include "desktop/controls/DesktopIcons.h"
#include <QGuiApplication>
#include <QWidget>

namespace vantrel {

namespace {

/// Sides of the icon in pixels, on panels of usual heights at usual densities.
constexpr int Sides[] = {16, 22, 24, 32, 48, 64};

QString FileOf(TrayImage image)
{
    switch (image) {
    case TrayImage::Waiting:
        return QStringLiteral("tray-waiting");
    case TrayImage::Flash:
        return QStringLiteral("tray-flash");
    case TrayImage::Disabled:
        return QStringLiteral("tray-disabled");
    case TrayImage::NoHandle:
        break;
    }
    return {};
}

/// Where there is no notification area, Qt waits for one of X11; on Wayland it does so in vain and
/// with a warning.
bool HasOrAwaitsArea()
{
    return !QGuiApplication::platformName().startsWith(QStringLiteral("wayland")) ||
           QSystemTrayIcon::isSystemTrayAvailable();
}

} // namespace

DesktopTray::DesktopTray(StationFace& face, QWidget& mainWindow)
    : QObject(&mainWindow), m_face(face), m_mainWindow(mainWindow)
{
    for (std::size_t index = 0; index < m_images.size(); ++index)
        m_images[index] = ImageOf(static_cast<TrayImage>(index + 1));
    connect(&m_face, &StationFace::TrayChanged, this, &DesktopTray::Mirror);
    Mirror();
}

QIcon DesktopTray::ImageOf(TrayImage image)
{
    const QIcon drawing = DrawnIcon(FileOf(image));
    QIcon icon;
    for (const int side : Sides)
        icon.addPixmap(drawing.pixmap(QSize(side, side), 1.0));
    return icon;
}

void DesktopTray::Mirror()
{
    if (!m_face.IsTrayShown()) {
        delete m_icon;
        m_shown = TrayImage::NoHandle;
        return;
    }
    const bool isNew = m_icon.isNull();
    if (isNew) {
        m_icon = new QSystemTrayIcon(this);
        m_icon->setObjectName(QStringLiteral("TrayIcon"));
        connect(m_icon, &QSystemTrayIcon::activated, this, &DesktopTray::OnActivated);
    }
    if (m_shown != m_face.TrayPicture()) {
        m_shown = m_face.TrayPicture();
        m_icon->setIcon(m_images[static_cast<std::size_t>(m_shown) - 1]);
    }
    m_icon->setToolTip(m_face.TrayTip());
    if (isNew && HasOrAwaitsArea())
        m_icon->show();
}

void DesktopTray::OnActivated(QSystemTrayIcon::ActivationReason reason)
{
    if (reason != QSystemTrayIcon::Context)
        return;
    m_mainWindow.raise();
    m_mainWindow.activateWindow();
    m_face.AskPopUp(PopUp::mnuFile);
}

} // namespace vantrel
