#include "desktop/camera/DesktopCamera.h"
#include "desktop/controls/DesktopControls.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include <QCamera>
#include <QCameraDevice>
#include <QImageCapture>
#include <QMediaCaptureSession>
#include <QMediaDevices>
#include <utility>

namespace vantrel {

namespace {

const QString DefaultDevice = QStringLiteral("Default");

/// A camera of the machine. It runs while the dialog is open and takes one picture at a time. An
/// exposure that is asked for before the camera is ready is taken as soon as it is.
class DeviceCamera : public Cam
{
public:
    explicit DeviceCamera(const QCameraDevice& device) : m_camera(device)
    {
        m_media.setCamera(&m_camera);
        m_media.setImageCapture(&m_capture);
        connect(&m_capture, &QImageCapture::imageCaptured, this, [this](int, const QImage& image) {
            Q_EMIT PictureAvailable(Picture::FromImage(image));
        });
        connect(&m_capture, &QImageCapture::readyForCaptureChanged, this,
                [this] { CaptureWhenReady(); });
        connect(&m_camera, &QCamera::errorOccurred, this,
                [this](QCamera::Error, const QString& reason) {
                    Q_EMIT PictureMissing(QStringLiteral("The camera gives no picture: ") + reason);
                });
        m_camera.start();
    }
    void Expose(int& /*flashMode*/, int& /*mode*/, int& /*third*/) override
    {
        m_asked = true;
        CaptureWhenReady();
    }

private:
    void CaptureWhenReady()
    {
        if (!m_asked || !m_capture.isReadyForCapture())
            return;
        m_asked = false;
        m_capture.capture();
    }

    QCamera m_camera;
    QImageCapture m_capture;
    QMediaCaptureSession m_media;
    bool m_asked = false;
};

/// Stands in where there is no camera, or none of that name: it never delivers a picture.
class NoCamera : public Cam
{
public:
    explicit NoCamera(QString name) : m_name(std::move(name)) {}
    void Expose(int& /*flashMode*/, int& /*mode*/, int& /*third*/) override {}
    QString Absence() const override
    {
        const QString camera =
            m_name.isEmpty() ? QStringLiteral("There is no camera.")
                             : QStringLiteral("There is no camera \"%1\".").arg(ShownLine(m_name));
        return camera + QStringLiteral(" To take the pictures from a folder, write Camera=folder: "
                                       "and its path into the section [Station] of "
                                       "\"Vantrel 6.ini\".");
    }

private:
    QString m_name;
};

} // namespace

std::unique_ptr<Cam> MakeCamera(const Session& session)
{
    const QString wanted = StationOption(session.ProgramFolder, QStringLiteral("Camera"));
    if (wanted.startsWith(CameraFolderWord))
        return std::make_unique<FolderCamera>(wanted.mid(CameraFolderWord.size()));
    const bool any = wanted.isEmpty() || wanted.compare(DefaultDevice, Qt::CaseInsensitive) == 0;
    for (const QCameraDevice& device : QMediaDevices::videoInputs()) {
        if (any ? device.isDefault() : device.description() == wanted)
            return std::make_unique<DeviceCamera>(device);
    }
    return std::make_unique<NoCamera>(any ? QString() : wanted);
}

} // namespace vantrel
