#pragma once

#include <QString>
#include <optional>

namespace vantrel {

/// Reads a day such as "2026-11-21", which stands for its begin, or a day and a time such as
/// "2026-11-21T14:03:07.120Z". Without a zone both are this machine's own. @return milliseconds
/// since 1970, UTC, or nothing if it is neither. Never fails
std::optional<qint64> ReadTimeText(const QString& text);

} // namespace vantrel
