#include "station/imaging/CameraLibrary.h"
#include "base/Skip.h"
#include <QDir>
#include <QTimer>

namespace vantrel {

void FolderCamera::Expose(int& /*flashMode*/, int& /*mode*/, int& /*third*/)
{
    QTimer::singleShot(0, this, [this] {
        const QFileInfoList newestFirst =
            QDir(m_folder).entryInfoList(QDir::Files | QDir::Readable, QDir::Time);
        for (const QFileInfo& file : newestFirst) {
            // A file that is still being written is not a valid picture yet.
            if (Skip("picture of the folder",
                     [&] { Q_EMIT PictureAvailable(LoadPicture(file.filePath())); }))
                return;
        }
        Q_EMIT PictureMissing(
            QStringLiteral("There is no picture in the folder \"%1\".").arg(m_folder));
    });
}

} // namespace vantrel
