#pragma once

#include <QIcon>

namespace vantrel {

/// A printer with a tick for a queue that takes jobs, with a cross for one that refuses them.
QIcon PrinterIcon(bool acceptsJobs, const QColor& color);

} // namespace vantrel
