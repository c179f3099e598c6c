#pragma once

#include <QChar>

namespace vantrel {

/// The decimal separator of the machine's locale, mostly "." or ",". The station itself writes all
/// numbers with ".".
QChar MachineDecimalSeparator();

} // namespace vantrel
