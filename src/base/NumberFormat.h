#pragma once

#include <QChar>

namespace vantrel {

/// The decimal separator of the machine's number format, as its environment says it: "." or ","
/// mostly. Numbers of the station itself are written with "." everywhere.
QChar MachineDecimalSeparator();

} // namespace vantrel
