#pragma once

#include <QIcon>
#include <QString>

namespace vantrel {

/// Number of the icon that an entry of this caption has in the menus; 0 where it has none. Entries
/// of one caption share one icon.
int MenuIconNumber(const QString& caption);
/// The icon of that number, sharp at every scale; none for 0.
QIcon MenuIcon(int number);

} // namespace vantrel
