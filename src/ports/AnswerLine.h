#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <memory>

namespace vantrel {

/// The way back to a host: its connection by a descriptor of its own. Bytes can still be sent after
/// the host has ended its sending side and the socket that received from it was closed. The
/// connection is closed when the last owner of the line lets go and all its bytes are sent.
class AnswerLine : public QObject
{
    Q_OBJECT

public:
    /// While more than this is unsent, nothing more should be read from the host.
    static constexpr qsizetype FullAt = qsizetype{64} << 10;
    /// A host that leaves more than this unread is disconnected.
    static constexpr qsizetype Limit = qsizetype{1} << 20;

    /// Opens the way back of a connected socket. @return null if the process has no descriptor left
    /// @param peer    the host's address and port, for the log
    /// @param parent  owns what is not yet sent when the last owner lets go
    static std::shared_ptr<AnswerLine> Open(int descriptor, const QString& peer, QObject* parent);
    ~AnswerLine() override;

    /// Sends bytes without waiting; what the host does not take at once is sent later. Does nothing
    /// if the host is gone.
    void Send(const QByteArray& bytes);
    bool IsFull() const { return m_unsent.size() >= FullAt; }

Q_SIGNALS:
    /// The line is no longer full.
    void Drained();

private:
    AnswerLine(int descriptor, QString peer, QObject* parent);
    void Flush();
    void Abandon();
    void LetGo();
    void Close();

    int m_descriptor;
    QString m_peer;
    QSocketNotifier m_writable;
    QByteArray m_unsent;
    /// Nobody owns the line any more.
    bool m_letGo = false;
    /// The host is gone or was disconnected.
    bool m_gone = false;
};

} // namespace vantrel
