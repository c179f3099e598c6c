#include "desktop/controls/DesktopIcons.h"

// The resource is linked in from a library, so it is named; outside of any namespace.
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
