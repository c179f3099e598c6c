#include "capture/SockArray.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"
#include <QHostAddress>
#include <QNetworkInterface>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>
#include <set>
#include <sys/socket.h>
#include <unistd.h>

namespace vantrel {

namespace {

/// How many hosts may wait for the station while it prints.
constexpr int WaitingHosts = 1024;
/// How long the listener rests after the system refused it a connection, for want of descriptors.
constexpr std::chrono::milliseconds RestAfterRefusal{250};

/// One accepted connection. Its handlers let events run, in which it may be closed and its element
/// given to the next host; so it lives on until its own handler has left the stack.
class Line : public QTcpSocket
{
public:
    using QTcpSocket::QTcpSocket;

    /// The socket forgets its host when the connection ends, and then the last bytes still come.
    QString Host;
    bool InHandler = false;
    bool Taken = false;
    bool EndedByHost = false;
    bool Dropped = false;
};

/// A listener that hands each connection on as a bare descriptor.
class Server : public QTcpServer
{
public:
    using QTcpServer::QTcpServer;

    std::function<void(qintptr)> OnRequest;

protected:
    void incomingConnection(qintptr descriptor) override { OnRequest(descriptor); }
};

/// Who is at the other end of a bare connection; null where it is gone.
QHostAddress PeerOf(qintptr descriptor)
{
    sockaddr_storage peer{};
    socklen_t length = sizeof peer;
    auto* address = reinterpret_cast<sockaddr*>(&peer);
    if (::getpeername(static_cast<int>(descriptor), address, &length) != 0)
        return {};
    return QHostAddress(address);
}

Failure NotPossible(const QString& text)
{
    return {FailureNumber::InvalidCall, text};
}

} // namespace

struct SockArray::Private
{
    explicit Private(SockArray& array) : Array(array), Listener(&array) {}

    Line*& At(int index)
    {
        if (index < 1 || index > static_cast<int>(Lines.size()))
            throw Failure(FailureNumber::SubscriptOutOfRange, QStringLiteral("No such socket"));
        return Lines[static_cast<std::size_t>(index - 1)];
    }

    Line& Connected(int index)
    {
        Line* line = At(index);
        if (line == nullptr)
            throw NotPossible(QStringLiteral("The socket is closed"));
        return *line;
    }

    void Request(qintptr descriptor);
    void Serve(Line& line, int index);
    void Drop(Line& line);

    SockArray& Array;
    Server Listener;
    int Port = 0;
    QHostAddress Address = QHostAddress::Any;
    HostAccess Access;
    std::set<qintptr> Requests;
    /// Element 1 and up; none where the element is closed.
    std::vector<Line*> Lines;
};

void SockArray::Private::Request(qintptr descriptor)
{
    if (!Access.Allows(PeerOf(descriptor))) {
        ::close(static_cast<int>(descriptor));
        return;
    }
    Requests.insert(descriptor);
    Q_EMIT Array.ConnectionRequest(0, descriptor);
    if (Requests.erase(descriptor) > 0)
        ::close(static_cast<int>(descriptor));
}

// A line does not nest in itself: what comes while its own handler runs, its end included, is told
// when the handler is done.
void SockArray::Private::Serve(Line& line, int index)
{
    if (line.InHandler)
        return;
    line.InHandler = true;
    line.Taken = true;
    while (!line.Dropped && line.Taken && line.bytesAvailable() > 0) {
        line.Taken = false;
        Q_EMIT Array.DataArrival(index);
    }
    if (line.EndedByHost && !line.Dropped)
        Q_EMIT Array.ConnectionClosed(index);
    line.InHandler = false;
    if (line.Dropped)
        line.deleteLater();
}

void SockArray::Private::Drop(Line& line)
{
    line.Dropped = true;
    line.disconnect(&Array);
    line.abort();
    if (!line.InHandler)
        line.deleteLater();
}

SockArray::SockArray(QObject* parent) : QObject(parent), m_d(std::make_unique<Private>(*this))
{
    m_d->Listener.setListenBacklogSize(WaitingHosts);
    m_d->Listener.OnRequest = [this](qintptr descriptor) { m_d->Request(descriptor); };
    // A refused accept pauses the listener for good; an unattended station has to come back.
    connect(&m_d->Listener, &QTcpServer::acceptError, this, [this] {
        QTimer::singleShot(RestAfterRefusal, this, [this] { m_d->Listener.resumeAccepting(); });
    });
}

SockArray::~SockArray()
{
    for (int index = 0; index <= HighestIndex(); ++index)
        Close(index);
}

int SockArray::HighestIndex() const
{
    return static_cast<int>(m_d->Lines.size());
}

SockState SockArray::State(int index) const
{
    if (index == 0)
        return m_d->Listener.isListening() ? SockState::Listening : SockState::Closed;
    return m_d->At(index) != nullptr ? SockState::Connected : SockState::Closed;
}

void SockArray::SetLocalPort(int port)
{
    if (port < 0 || port > 65535)
        throw NotPossible(QStringLiteral("No such port"));
    m_d->Port = port;
}

void SockArray::SetLocalAddress(const QString& address)
{
    const QHostAddress wanted =
        address.isEmpty() ? QHostAddress(QHostAddress::Any) : QHostAddress(address);
    if (wanted.isNull())
        throw NotPossible(QStringLiteral("No such address"));
    m_d->Address = wanted;
}

void SockArray::SetAccess(const HostAccess& access)
{
    m_d->Access = access;
}

int SockArray::LocalPort() const
{
    return m_d->Listener.isListening() ? m_d->Listener.serverPort() : m_d->Port;
}

void SockArray::Listen()
{
    if (m_d->Listener.isListening())
        throw NotPossible(QStringLiteral("The socket listens already"));
    if (!m_d->Listener.listen(m_d->Address, static_cast<quint16>(m_d->Port)))
        throw NotPossible(m_d->Listener.errorString());
}

void SockArray::Load(int index)
{
    if (index != HighestIndex() + 1)
        throw NotPossible(QStringLiteral("The socket cannot be made"));
    m_d->Lines.push_back(nullptr);
}

void SockArray::Accept(int index, qintptr requestId)
{
    Line*& element = m_d->At(index);
    if (element != nullptr)
        throw NotPossible(QStringLiteral("The socket is in use"));
    if (!m_d->Requests.contains(requestId))
        throw NotPossible(QStringLiteral("The connection is gone"));
    auto line = std::make_unique<Line>(this);
    if (!line->setSocketDescriptor(requestId))
        throw NotPossible(line->errorString());
    m_d->Requests.erase(requestId);

    // A host that lost its power never closes; in months such sockets would pile up.
    line->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    line->Host = PlainAddress(line->peerAddress()).toString();
    element = line.release();
    connect(element, &QTcpSocket::readyRead, this,
            [this, &line = *element, index] { m_d->Serve(line, index); });
    connect(element, &QTcpSocket::disconnected, this, [this, &line = *element, index] {
        line.EndedByHost = true;
        m_d->Serve(line, index);
    });
}

QString SockArray::GetData(int index)
{
    Line& line = m_d->Connected(index);
    line.Taken = true;
    return FromCodePage(line.readAll());
}

void SockArray::Close(int index)
{
    if (index == 0) {
        m_d->Listener.close();
        return;
    }
    if (Line* line = std::exchange(m_d->At(index), nullptr))
        m_d->Drop(*line);
}

QString SockArray::RemoteHostIP(int index) const
{
    return m_d->Connected(index).Host;
}

QString SockArray::LocalIP() const
{
    if (m_d->Address != QHostAddress(QHostAddress::Any))
        return m_d->Address.toString();
    const QList<QHostAddress> addresses = QNetworkInterface::allAddresses();
    for (const QHostAddress& address : addresses) {
        if (address.protocol() == QAbstractSocket::IPv4Protocol && !address.isLoopback())
            return address.toString();
    }
    return QHostAddress(QHostAddress::LocalHost).toString();
}

} // namespace vantrel
