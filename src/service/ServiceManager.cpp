#include "service/ServiceManager.h"
#include <systemd/sd-daemon.h>

namespace vantrel {

namespace {

constexpr std::chrono::seconds LifeInterval{10};
constexpr std::chrono::seconds StartTime{60};

void Tell(const QByteArray& state)
{
    // Nobody can be told that the service manager is not there.
    static_cast<void>(::sd_notify(0, state.constData()));
}

/// How often signs of life must come, or nothing if none are wanted.
std::optional<std::chrono::microseconds> WatchdogTime()
{
    std::uint64_t microseconds = 0;
    if (::sd_watchdog_enabled(0, &microseconds) <= 0)
        return {};
    return std::chrono::microseconds(microseconds);
}

} // namespace

ServiceManager::ServiceManager() : m_startTime(StartTime)
{
    if (!qEnvironmentVariableIsSet("NOTIFY_SOCKET"))
        return;
    connect(&m_life, &QTimer::timeout, this, &ServiceManager::ShowLife);
    std::chrono::microseconds interval = LifeInterval;
    if (const auto time = WatchdogTime())
        interval = std::min(interval, *time / 2);
    m_life.start(std::chrono::duration_cast<std::chrono::milliseconds>(interval));
}

void ServiceManager::TellReady()
{
    if (std::exchange(m_isReady, true))
        return;
    Tell("READY=1");
    if (!WatchdogTime())
        m_life.stop();
}

void ServiceManager::TellStatus(const QString& text)
{
    Tell("STATUS=" + QString(text).replace(QLatin1Char('\n'), QLatin1Char(' ')).toUtf8());
}

void ServiceManager::TellEnding()
{
    m_life.stop();
    Tell("STOPPING=1");
}

void ServiceManager::ShowLife()
{
    Tell(m_isReady ? QByteArray("WATCHDOG=1")
                   : "EXTEND_TIMEOUT_USEC=" + QByteArray::number(qlonglong{m_startTime.count()}));
}

} // namespace vantrel
