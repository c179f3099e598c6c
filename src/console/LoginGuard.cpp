#include "console/LoginGuard.h"
#include <algorithm>

namespace vantrel::console {

namespace {

constexpr std::chrono::milliseconds ShortestDelay{250};
constexpr int MostDoublings = 4;
constexpr std::chrono::minutes ForgottenAfter{5};
constexpr int MostWaiting = 32;

} // namespace

std::optional<std::chrono::milliseconds> LoginGuard::Fail()
{
    const Time now = m_now();
    if (now - m_last > ForgottenAfter)
        m_failures = 0;
    m_last = now;
    const int doublings = std::min(m_failures++, MostDoublings);
    m_failures = std::min(m_failures, MostDoublings);
    if (m_waiting >= MostWaiting)
        return std::nullopt;
    ++m_waiting;
    return ShortestDelay * (1 << doublings);
}

} // namespace vantrel::console
