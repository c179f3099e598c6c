#include "desktop/controls/DesktopFileKinds.h"
#include <QMimeDatabase>

namespace vantrel {

QIcon KindByName::icon(const QFileInfo& file) const
{
    return icon(file.isDir() ? Folder : File);
}

QString KindByName::type(const QFileInfo& file) const
{
    if (file.isDir())
        return QFileIconProvider::type(file);
    return QMimeDatabase()
        .mimeTypeForFile(file.fileName(), QMimeDatabase::MatchExtension)
        .comment();
}

} // namespace vantrel
