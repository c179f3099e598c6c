#include "base/FileStamp.h"
#include <QFile>
#include <sys/stat.h>

namespace vantrel {

namespace {

FileStamp StampOf(const struct stat& found)
{
    if (!S_ISREG(found.st_mode))
        return {};
    return {true,          found.st_dev,         found.st_ino,
            found.st_size, found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
}

} // namespace

FileStamp StampOfFile(const QString& path)
{
    struct stat found = {};
    return ::stat(QFile::encodeName(path).constData(), &found) == 0 ? StampOf(found) : FileStamp();
}

FileStamp StampOfFile(int descriptor)
{
    struct stat found = {};
    return ::fstat(descriptor, &found) == 0 ? StampOf(found) : FileStamp();
}

} // namespace vantrel
