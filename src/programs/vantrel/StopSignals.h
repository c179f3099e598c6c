#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace vantrel {

/// Turns SIGTERM and SIGINT into a Qt signal. One process has at most one.
class StopSignals : public QObject
{
    Q_OBJECT

public:
    StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;
    ~StopSignals() override;

Q_SIGNALS:
    void Asked();

private:
    QSocketNotifier m_notifier;
};

} // namespace vantrel
