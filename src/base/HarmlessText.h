#pragma once

#include <QString>

namespace vantrel {

/// A text as it may stand on a terminal: control characters, and those that turn the direction of
/// what follows, are replaced by visible ones, so that no value moves the cursor or hides another.
QString HarmlessText(QStringView text);

} // namespace vantrel
