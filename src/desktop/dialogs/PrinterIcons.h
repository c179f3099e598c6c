#pragma once

#include <QIcon>
#include <QPalette>

namespace vantrel {

/// For a row of a list: a printer with a tick for a queue that takes jobs, with a cross for one
/// that refuses them.
QIcon PrinterIcon(bool acceptsJobs, const QPalette& palette);

} // namespace vantrel
