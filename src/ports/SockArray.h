#pragma once

#include "base/InputText.h"
#include "ports/HostAccess.h"
#include <QObject>
#include <QString>
#include <memory>
#include <vector>

namespace vantrel {

class AnswerLine;

/// States of a socket.
enum class SockState { Closed = 0, Listening = 2, Connected = 7 };

/// The station's sockets. Element 0 listens; each other element holds one accepted connection, is
/// created on demand and reused when closed. The class only moves bytes; `Listener` processes them.
class SockArray : public QObject
{
    Q_OBJECT

public:
    explicit SockArray(QObject* parent = nullptr);
    ~SockArray() override;

    /// The highest element that was loaded; 0 if only the listener exists.
    int HighestIndex() const;
    /// State of an element; an element that was never loaded is closed.
    SockState State(int index) const;
    /// Sets the port of element 0. The number is not checked here; `Listen` fails for one that is
    /// not a port.
    void SetLocalPort(int port);
    /// The port that element 0 listens on, or the number that was set.
    int LocalPort() const;
    /// Sets the address that element 0 listens on; empty for all addresses of the machine. Fails
    /// with `InvalidCall` if the text is not an address.
    void SetLocalAddress(const QString& address);
    /// Sets which hosts may connect. Connections of other hosts are closed at once without a
    /// signal.
    void SetAccess(const HostAccess& access);
    /// Sets how the bytes of connections are read as characters, for those accepted from now on.
    void SetEncoding(InputEncoding encoding);
    /// Sets whether hosts get answers, for connections accepted from now on.
    void SetAnswers(bool on);
    /// Limits how many bytes of a connection are read ahead, for those accepted from now on; 0 for
    /// no limit. With a limit, received bytes may be left until later: then `Resume` must be called
    /// to get them, and a connection counts as closed only when all of them are taken.
    void SetReadAhead(qint64 bytes);
    /// Starts listening. Fails with `InvalidCall` if the port is not 1 to 65535 or cannot be
    /// opened.
    void Listen();
    /// Creates element `index`, which must be one above the highest.
    void Load(int index);
    /// Assigns a waiting connection to element `index`. Fails with `InvalidCall` if the connection
    /// is gone.
    void Accept(int index, qintptr requestId);
    /// Takes all received bytes of an element, as characters of its encoding.
    QString GetData(int index);
    /// Whether an element has received a byte that is no character; each connection tells so once.
    bool TakeStrayNotice(int index);
    /// Signals again what an element has received and what was left; does nothing if there is
    /// nothing or it is closed.
    void Resume(int index);
    /// The way back to the host of an element; null if hosts get no answers.
    std::shared_ptr<AnswerLine> Answers(int index);
    /// Closes an element; does nothing if it is closed. The connection itself stays open while
    /// somebody owns its way back.
    void Close(int index);
    /// Address of the host that is connected to an element.
    QString RemoteHostIP(int index) const;
    /// Address and port of that host, such as "192.168.7.10:51234" or "[fd00::7]:51234".
    QString RemotePeer(int index) const;
    /// The address that the station listens on, or else one of this machine's addresses that hosts
    /// can connect to.
    QString LocalIP() const;

Q_SIGNALS:
    /// A host wants to connect; `index` is 0. Pass `requestId` to `Accept`.
    void ConnectionRequest(int index, qintptr requestId);
    /// Bytes have arrived on an element; call `GetData`.
    void DataArrival(int index);
    /// The host has closed the connection of an element.
    void ConnectionClosed(int index);
    /// `Close` is called for an open element; what it has received can still be taken.
    void Closing(int index);

private:
    struct Private;
    std::unique_ptr<Private> m_d;
};

} // namespace vantrel
