#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>

namespace vantrel {

/// The service manager that has started this process, as sd_notify(3) describes it. It is told when
/// the process is ready, what it does and that it ends. While the event loop runs, it also gets the
/// signs of life that it wants, so a process that hangs is started again; a start that takes long
/// is given time as long as the loop runs. Where no service manager waits for any of this, nothing
/// is done.
class ServiceManager : public QObject
{
    Q_OBJECT

public:
    ServiceManager();

    /// May be called again; only the first call counts.
    void TellReady();
    /// Tells what the process does.
    /// @param text  one line, which is shown by `systemctl status`
    void TellStatus(const QString& text);
    /// Must be called before the process begins to end.
    void TellEnding();

private:
    void ShowLife();

    QTimer m_life;
    bool m_isReady = false;
    /// The time until the next sign of life of a start must have come.
    std::chrono::microseconds m_startTime;
};

} // namespace vantrel
