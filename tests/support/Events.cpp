#include "support/Events.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

namespace vantrel::test {

bool EventsUntil(const std::function<bool()>& holds)
{
    constexpr int LimitMs = 60000;
    constexpr int LookAgainMs = 10;
    QElapsedTimer clock;
    clock.start();
    QTimer lookAgain;
    lookAgain.start(LookAgainMs);
    while (!holds()) {
        if (clock.elapsed() > LimitMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace vantrel::test
