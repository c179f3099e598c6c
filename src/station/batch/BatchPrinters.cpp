#include "station/batch/BatchPrinters.h"

namespace vantrel {

QStringList BatchPrinters::DeviceNames()
{
    const QString wanted = m_wanted ? m_wanted() : QString();
    return {wanted.isEmpty() ? m_printer->DeviceName() : wanted};
}

} // namespace vantrel
