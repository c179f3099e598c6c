#pragma once

#include <QByteArray>

namespace vantrel::test {

/// A host on this machine, on a plain blocking socket, so that what it does is done when the call
/// returns and needs no events of the station's thread.
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
    void Close();
    /// Breaks the connection off instead of ending it.
    void Reset();
    /// Whether the station has ended the connection. Does not wait.
    bool SeesEnd() const;
    /// How many bytes the station sent. Does not wait.
    qsizetype BytesToRead() const;

private:
    int m_descriptor = -1;
    bool m_connected = false;
};

} // namespace vantrel::test
