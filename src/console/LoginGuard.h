#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace vantrel::console {

/// Slows down those who guess: each wrong token is answered later than the one before, until none
/// came for a while. The right token is never slowed, so nobody can lock the owner out.
class LoginGuard
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// @param now  the clock, for tests
    explicit LoginGuard(std::function<Time()> now = std::chrono::steady_clock::now)
        : m_now(std::move(now))
    {}

    /// Notes a wrong token. @return how long its refusal is to be held back, a quarter of a second
    /// to four seconds; nothing if too many are held back already, so that this one is to be
    /// refused as one of too many
    std::optional<std::chrono::milliseconds> Fail();
    /// A refusal that was held back is sent.
    void Sent() { --m_waiting; }

private:
    std::function<Time()> m_now;
    int m_failures = 0;
    Time m_last;
    int m_waiting = 0;
};

} // namespace vantrel::console
