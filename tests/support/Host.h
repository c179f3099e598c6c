#pragma once

#include <QByteArray>

namespace vantrel::test {

/// A host on this machine, on a plain blocking socket: each call is complete when it returns and
/// needs no events of the station's thread.
class Host
{
public:
    explicit Host(int port);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    Host(Host&& other) noexcept;
    Host& operator=(Host&&) = delete;

    bool IsConnected() const { return m_connected; }
    void Send(const QByteArray& bytes) const;
    /// Sends as many of these bytes as the connection takes at once. @return how many it took
    qsizetype SendWithoutWaiting(const QByteArray& bytes) const;
    /// Ends its sending side; it can still receive.
    void EndSending() const;
    /// What the station sent and was not yet read. Does not wait.
    QByteArray Received() const;
    void Close();
    /// Resets the connection instead of closing it.
    void Reset();
    /// Whether the station has closed the connection. Does not wait.
    bool SeesEnd() const;
    /// How many bytes the station sent. Does not wait.
    qsizetype BytesToRead() const;

private:
    int m_descriptor = -1;
    bool m_connected = false;
};

} // namespace vantrel::test
