#pragma once

#include "console/Answer.h"
#include "console/Request.h"
#include <optional>

namespace vantrel::console {

/// A file of the page that browsers show; nothing if it has none of this path. The files hold
/// nothing of records, so they need no login.
std::optional<Answer> PageFile(const QStringList& path);

} // namespace vantrel::console
