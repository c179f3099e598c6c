#pragma once

#include <QString>

namespace vantrel {

/// Removes from `text` every occurrence of each character of `characters`, matching case exactly.
QString StripChars(const QString& characters, const QString& text);

} // namespace vantrel
