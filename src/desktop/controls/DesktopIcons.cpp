#include "desktop/controls/DesktopIcons.h"

// The resource is in a static library, so it must be initialised by its name, outside of any
// namespace.
static void InitIcons()
{
    Q_INIT_RESOURCE(vantrel);
}

namespace vantrel {

QIcon DrawnIcon(const QString& name)
{
    InitIcons();
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(name));
}

} // namespace vantrel
