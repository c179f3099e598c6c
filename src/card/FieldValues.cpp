#include "card/FieldValues.h"
#include "base/Failure.h"
#include <limits>

namespace vantrel {

namespace {

constexpr qsizetype LongestShort = 64;
constexpr std::uint32_t IsLong = std::numeric_limits<std::uint32_t>::max();

} // namespace

QString FieldValues::Item(int position) const
{
    if (position < 1 || position > Count())
        throw Failure(FailureNumber::SubscriptOutOfRange, QStringLiteral("Subscript out of range"));
    const Place place = m_places[position - 1];
    return place.Length == IsLong ? m_long[place.Begin] : m_short.mid(place.Begin, place.Length);
}

void FieldValues::Add(const QString& value)
{
    constexpr auto lastBegin = std::numeric_limits<std::uint32_t>::max();
    if (value.size() > LongestShort || m_short.size() > lastBegin) {
        m_places.append({static_cast<std::uint32_t>(m_long.size()), IsLong});
        m_long.append(value);
        return;
    }
    m_places.append(
        {static_cast<std::uint32_t>(m_short.size()), static_cast<std::uint32_t>(value.size())});
    m_short.append(value);
}

} // namespace vantrel
