#include "base/NumberFormat.h"
#include <QLocale>

namespace vantrel {

QChar MachineDecimalSeparator()
{
    return QLocale::system().decimalPoint().front();
}

} // namespace vantrel
