#pragma once

#include <QVariant>
#include <cstdint>

namespace vantrel {

/// @return a stored position, size or index; 0 if it is null or not a number. Never fails
std::int32_t StoredLong(const QVariant& value);

/// @return a stored boolean; a null is false. Fails with `TypeMismatch` for any other value
bool StoredBoolean(const QVariant& value);

} // namespace vantrel
