#pragma once

#include <QString>

namespace vantrel {

/// What is told of a file or folder that the system refuses: its path and the system's reason.
/// @param error  the value of `errno`
QString FileTrouble(const QString& path, int error);

} // namespace vantrel
