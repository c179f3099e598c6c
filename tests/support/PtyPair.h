#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel::test {

/// A serial cable: the host's end is a plain descriptor, the station's end a device under a name of
/// the test's choice, since adapters can come back under another number.
class PtyPair
{
public:
    /// @param name  where to put the link to the device; one that is there is replaced
    explicit PtyPair(QString name);
    ~PtyPair();
    PtyPair(const PtyPair&) = delete;
    PtyPair& operator=(const PtyPair&) = delete;

    /// The link's own path.
    const QString& Device() const { return m_name; }
    /// Sends bytes as fast as the line takes them and lets events run while it is full.
    void Send(const QByteArray& bytes) const;
    /// Sends as many of these bytes as the line takes at once. @return how many it took
    qsizetype SendWithoutWaiting(const QByteArray& bytes) const;
    /// What the station sent and was not yet read. Does not wait.
    QByteArray Received() const;
    /// Pulls the adapter out: the device is gone, and its name with it.
    void Unplug();
    /// The number of unread bytes that the station sent.
    qsizetype BytesToRead() const;

    /// The settings of the station's end.
    unsigned Speed() const;
    bool HasXonXoff() const;
    bool HasHardwareFlow() const;
    bool HasLongStop() const;

private:
    QString m_name;
    int m_host = -1;
    /// Keeps the line's mode while no station has it open.
    int m_line = -1;
};

} // namespace vantrel::test
