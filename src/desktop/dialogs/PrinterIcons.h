#pragma once

#include <QIcon>
#include <QPalette>

namespace vantrel {

/// The icon of a printer in a list: with a tick for a queue that accepts jobs, with a cross for one
/// that refuses them.
QIcon PrinterIcon(bool acceptsJobs, const QPalette& palette);

} // namespace vantrel
