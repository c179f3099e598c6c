#pragma once

#include <QIcon>
#include <QString>

namespace vantrel {

/// A drawing of the program's own, sharp at every scale.
/// @param name  of its file, without the ending
QIcon DrawnIcon(const QString& name);

} // namespace vantrel
