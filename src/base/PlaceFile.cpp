#include "base/PlaceFile.h"
#include <QFile>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace vantrel {

PlaceResult PlaceFile(const QString& finished, const QString& name)
{
    const QByteArray from = QFile::encodeName(finished);
    const QByteArray to = QFile::encodeName(name);
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return PlaceResult::Placed;
    // Some file systems do not support a rename that refuses to replace; a hard link never
    // replaces.
    if (errno == EINVAL || errno == ENOSYS) {
        if (link(from.constData(), to.constData()) == 0) {
            unlink(from.constData());
            return PlaceResult::Placed;
        }
    }
    return errno == EEXIST ? PlaceResult::NameTaken : PlaceResult::Failed;
}

} // namespace vantrel
