#include "base/FileStamp.h"
#include <QFile>
#include <sys/stat.h>

namespace vantrel {

FileStamp StampOfFile(const QString& path)
{
    struct stat found = {};
    if (::stat(QFile::encodeName(path).constData(), &found) != 0 || !S_ISREG(found.st_mode))
        return {};
    return {true,          found.st_dev,         found.st_ino,
            found.st_size, found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
}

} // namespace vantrel
