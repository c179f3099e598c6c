#pragma once

#include <QString>

namespace vantrel {

/// @return `text` without any of the characters in `characters`; case matters
QString StripChars(const QString& characters, const QString& text);

} // namespace vantrel
