#pragma once

#include <QVariant>
#include <cstdint>

namespace vantrel {

/// @return a stored position, size or index; 0 where it is null or cannot be read. Never fails
std::int32_t StoredLong(const QVariant& value);

/// @return a stored yes/no; a null is no. Fails with `TypeMismatch` for what is neither
bool StoredBoolean(const QVariant& value);

} // namespace vantrel
