#pragma once

#include "drawing/Picture.h"
#include <QObject>

namespace vantrel {

/// Begins the value of the settings key "Camera" that names a folder.
inline constexpr QLatin1StringView CameraFolderWord{"folder:"};

/// A camera: it is asked for a picture and delivers it later or never.
class Cam : public QObject
{
    Q_OBJECT

public:
    /// Requests one picture and returns at once; `PictureAvailable` delivers it. `mode` is always
    /// 8; the caller neither sets nor reads `third`. A camera without a picture emits nothing.
    virtual void Expose(int& flashMode, int& mode, int& third) = 0;
    /// Message for the operator if the camera is not available; otherwise empty.
    virtual QString Absence() const { return {}; }

Q_SIGNALS:
    /// Delivers a requested picture.
    void PictureAvailable(const vantrel::Picture& picture);
    /// Tells why a requested picture does not come, in a sentence for the operator.
    void PictureMissing(const QString& reason);
};

/// Delivers the newest picture of a folder, for pictures that another device provides. Delivers
/// nothing if the folder has no readable picture.
class FolderCamera : public Cam
{
public:
    explicit FolderCamera(QString folder) : m_folder(std::move(folder)) {}
    void Expose(int& flashMode, int& mode, int& third) override;

private:
    QString m_folder;
};

} // namespace vantrel
