#include "card/Padding.h"
#include "base/Failure.h"

namespace vantrel {

QString PadValue(const QString& value, std::int16_t length, const QString& padText,
                 std::int32_t direction)
{
    constexpr std::int32_t left = 0;
    constexpr std::int32_t right = 1;

    const qsizetype missing = length - value.size();
    if (missing <= 0)
        return {};
    if ((direction == left || direction == right) && padText.size() > LongestPadding / missing)
        throw Failure(FailureNumber::Overflow, QStringLiteral("Overflow"));
    if (direction == left)
        return padText.repeated(missing) + value;
    if (direction == right)
        return value + padText.repeated(missing);
    return value;
}

} // namespace vantrel
