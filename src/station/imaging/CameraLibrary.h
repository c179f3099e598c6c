#pragma once

#include "drawing/Picture.h"
#include <QObject>

namespace vantrel {

/// A camera, as the station knows one: it is asked for a picture and delivers it later, or never.
class Cam : public QObject
{
    Q_OBJECT

public:
    /// Asks for one picture and returns at once. `mode` is always 8; the third number is neither
    /// set nor read by the caller. A camera that cannot answer stays silent.
    virtual void Expose(int& flashMode, int& mode, int& third) = 0;
    /// What an operator is to know where no such camera is there; empty where one is.
    virtual QString Absence() const { return {}; }

Q_SIGNALS:
    void PictureAvailable(const vantrel::Picture& picture);
};

/// Delivers the newest picture of a folder, for stations fed by another device. A folder without a
/// picture that can be read delivers none.
class FolderCamera : public Cam
{
public:
    explicit FolderCamera(QString folder) : m_folder(std::move(folder)) {}
    void Expose(int& flashMode, int& mode, int& third) override;

private:
    QString m_folder;
};

} // namespace vantrel
