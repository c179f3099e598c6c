#include "store/StoredValue.h"
#include "base/Convert.h"
#include "base/Skip.h"

namespace vantrel {

std::int32_t StoredLong(const QVariant& value)
{
    std::int32_t number = 0;
    if (!value.isNull())
        Skip("read number", [&] { number = ToLong(value); });
    return number;
}

bool StoredBoolean(const QVariant& value)
{
    return !value.isNull() && ToBoolean(value);
}

} // namespace vantrel
