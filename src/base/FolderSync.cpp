#include "base/FolderSync.h"
#include "base/Failure.h"
#include "base/FileTrouble.h"
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantrel {

namespace {

[[noreturn]] void FailWith(const QString& folder, int error)
{
    throw Failure(FailureNumber::PrinterError,
                  QStringLiteral("Printer error: ") + FileTrouble(folder, error));
}

bool IsUnsupported(int error)
{
    return error == EINVAL || error == ENOTSUP || error == ENOSYS;
}

} // namespace

void SyncFolder(const QString& path)
{
    const int folder =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        FailWith(path, errno);
    int result = 0;
    do {
        result = ::fsync(folder);
    } while (result != 0 && errno == EINTR);
    const int error = result == 0 ? 0 : errno;
    ::close(folder);
    if (error != 0 && !IsUnsupported(error))
        FailWith(path, error);
}

void MakeFolderDurably(const QString& path)
{
    QStringList missing;
    for (QString folder = QFileInfo(path).absoluteFilePath(); !QFileInfo(folder).isDir();
         folder = QFileInfo(folder).path())
        missing.prepend(folder);
    for (const QString& folder : std::as_const(missing)) {
        constexpr mode_t allThatTheUserAllows = 0777;
        // Another session may have made it meanwhile; a file of that name is no folder.
        if (::mkdir(QFile::encodeName(folder).constData(), allThatTheUserAllows) != 0 &&
            !(errno == EEXIST && QFileInfo(folder).isDir()))
            FailWith(folder, errno == EEXIST ? ENOTDIR : errno);
        SyncFolder(QFileInfo(folder).path());
    }
}

} // namespace vantrel
