#include "base/FileTrouble.h"
#include <system_error>

namespace vantrel {

QString FileTrouble(const QString& path, int error)
{
    return path + QStringLiteral(": ") +
           QString::fromStdString(std::generic_category().message(error));
}

} // namespace vantrel
