#include "RunLocks.h"
#include "PrintRun.h"
#include "station/session/StoreLocation.h"
#include <QDir>
#include <QFileInfo>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace vantrel::print {

namespace {

/// Keeps others from writing into a folder. @return its descriptor, open as long as it is locked
int LockedFolder(const QString& folder)
{
    if (!QDir().mkpath(folder))
        throw Failure(FailureNumber::PathNotFound,
                      QStringLiteral("The folder %1 cannot be made.").arg(folder));
    const QByteArray path = QFile::encodeName(folder);
    const int descriptor = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0 || ::access(path.constData(), W_OK) != 0) {
        if (descriptor >= 0)
            ::close(descriptor);
        throw Failure(FailureNumber::PathNotFound,
                      QStringLiteral("The folder %1 cannot be written.").arg(folder));
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return descriptor;
    ::close(descriptor);
    throw Failure(FailureNumber::InvalidCall,
                  QStringLiteral("Another run prints into %1.").arg(folder));
}

} // namespace

RunLocks::RunLocks(const PrintOptions& options)
{
    const QString home = QDir(options.Folder).absolutePath();
    if (!HasStore(home))
        throw Failure(FailureNumber::FileNotFound,
                      QStringLiteral("There is no layout database in %1.").arg(options.Folder));
    QStringList mistakes;
    if (ReadStationOptions(home, mistakes).Ledger)
        m_ledger = std::make_unique<RunLock>(home);
    if (options.Place == Place::Folder)
        m_folder = LockedFolder(FolderOf(options));
}

RunLocks::~RunLocks()
{
    if (m_folder >= 0)
        ::close(m_folder);
}

} // namespace vantrel::print
