#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace vantrel {

/// Turns SIGTERM and SIGINT into a Qt signal. A process may have one instance only.
class StopSignals : public QObject
{
    Q_OBJECT

public:
    StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;
    ~StopSignals() override;

Q_SIGNALS:
    /// SIGTERM or SIGINT was received.
    void Asked();

private:
    QSocketNotifier m_notifier;
};

} // namespace vantrel
