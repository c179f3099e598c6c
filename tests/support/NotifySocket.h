#pragma once

#include <QByteArrayList>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <memory>

namespace vantrel::test {

/// Stands for a service manager: a socket on which a process tells its state, see sd_notify(3).
class NotifySocket
{
public:
    NotifySocket();
    ~NotifySocket();
    NotifySocket(const NotifySocket&) = delete;
    NotifySocket& operator=(const NotifySocket&) = delete;

    /// The value of `NOTIFY_SOCKET`.
    QString Path() const;
    /// What was told so far.
    const QByteArrayList& Told() const { return m_told; }
    /// Lets events run until this was told at least that often. @return whether it was
    bool WaitUntilTold(const QByteArray& state, int times = 1);

private:
    void Read();

    QTemporaryDir m_folder;
    int m_socket = -1;
    QByteArrayList m_told;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace vantrel::test
