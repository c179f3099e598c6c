#include "ports/SockArray.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "ports/HostAccess.h"
#include "ports/SockLine.h"
#include "ports/SockServer.h"
#include <QHostAddress>
#include <QNetworkInterface>
#include <QPointer>
#include <deque>
#include <map>
#include <unistd.h>

namespace vantrel {

namespace {

/// The deepest nesting of arrival handlers. Each level uses stack until the inner ones return, and
/// hosts may send any number of records while a dialog is open. Further hosts wait.
constexpr int MaxNesting = 256;

constexpr int LowestPort = 1;
constexpr int HighestPort = 65535;

/// Address and port of a host.
QString PeerText(const PeerPlace& peer)
{
    const QString form = peer.Address.protocol() == QAbstractSocket::IPv6Protocol
                             ? QStringLiteral("[%1]:%2")
                             : QStringLiteral("%1:%2");
    return form.arg(peer.Address.toString()).arg(peer.Port);
}

Failure NotPossible(const QString& text)
{
    return {FailureNumber::InvalidCall, text};
}

} // namespace

struct SockArray::Private
{
    explicit Private(SockArray& array) : Array(array), Listener(&array) {}

    /// The place of an element in `Lines`.
    std::size_t PlaceOf(int index) const
    {
        if (index < 1 || index > static_cast<int>(Lines.size()))
            throw Failure(FailureNumber::SubscriptOutOfRange, QStringLiteral("No such socket"));
        return static_cast<std::size_t>(index - 1);
    }

    Line*& At(int index) { return Lines[PlaceOf(index)]; }

    Line& Connected(int index)
    {
        Line* line = At(index);
        if (line == nullptr)
            throw NotPossible(QStringLiteral("The socket is closed"));
        return *line;
    }

    void Request(qintptr descriptor, const PeerPlace& peer);
    void Serve(Line& line);
    void ServeWaiting();
    void Drop(Line& line);
    void CloseLine(std::size_t place);

    SockArray& Array;
    SockServer Listener;
    int Port = 0;
    QHostAddress Address = QHostAddress::Any;
    HostAccess Access;
    InputEncoding Encoding = InputEncoding::CodePage1252;
    bool Answers = false;
    qint64 ReadAhead = 0;
    /// Connections that are offered to be accepted, by their descriptors.
    std::map<qintptr, PeerPlace> Requests;
    /// Elements 1 and up; null for a closed element.
    std::vector<Line*> Lines;
    int Depth = 0;
    /// Connections with data that arrived at the deepest nesting, in order of arrival.
    std::deque<QPointer<Line>> Waiting;
};

void SockArray::Private::Request(qintptr descriptor, const PeerPlace& peer)
{
    if (!Access.Allows(peer.Address)) {
        LogSkipped(
            "the connection of a host",
            Failure(FailureNumber::InvalidCall, QStringLiteral("AllowFrom does not name %1")
                                                    .arg(PlainAddress(peer.Address).toString())));
        ::close(static_cast<int>(descriptor));
        return;
    }
    Requests.emplace(descriptor, peer);
    Q_EMIT Array.ConnectionRequest(0, descriptor);
    if (Requests.erase(descriptor) > 0)
        ::close(static_cast<int>(descriptor));
}

// A connection's own handlers never nest: what arrives while its handler runs, including its end,
// is signalled after the handler returns.
void SockArray::Private::Serve(Line& line)
{
    if (line.InHandler)
        return;
    if (Depth == MaxNesting) {
        Waiting.emplace_back(&line);
        Listener.LetIn(false);
        return;
    }
    ++Depth;
    line.InHandler = true;
    line.Taken = true;
    while (!line.Dropped && line.Taken && line.bytesAvailable() > 0) {
        line.Taken = false;
        Q_EMIT Array.DataArrival(line.Index);
    }
    if (line.EndedByHost && !line.Dropped && (ReadAhead == 0 || line.bytesAvailable() == 0))
        Q_EMIT Array.ConnectionClosed(line.Index);
    line.InHandler = false;
    --Depth;
    if (line.Dropped)
        line.deleteLater();
    if (!Waiting.empty())
        QMetaObject::invokeMethod(
            &Array, [this] { ServeWaiting(); }, Qt::QueuedConnection);
}

// Serves the waiting connections in order of arrival. Their handlers may reach the deepest nesting
// again, which leaves the others waiting.
void SockArray::Private::ServeWaiting()
{
    while (!Waiting.empty() && Depth < MaxNesting) {
        const QPointer<Line> line = Waiting.front();
        Waiting.pop_front();
        if (line && !line->Dropped)
            Serve(*line);
    }
    if (Depth < MaxNesting)
        Listener.LetIn(true);
}

void SockArray::Private::Drop(Line& line)
{
    line.Dropped = true;
    line.disconnect(&Array);
    line.abort();
    line.Answers.reset();
    if (!line.InHandler)
        line.deleteLater();
}

// Whoever hears of the closing may create or close elements.
void SockArray::Private::CloseLine(std::size_t place)
{
    if (Lines[place] != nullptr)
        Q_EMIT Array.Closing(static_cast<int>(place) + 1);
    if (Line* line = std::exchange(Lines[place], nullptr))
        Drop(*line);
}

SockArray::SockArray(QObject* parent) : QObject(parent), m_d(std::make_unique<Private>(*this))
{
    m_d->Listener.OnRequest = [this](qintptr descriptor, const PeerPlace& peer) {
        m_d->Request(descriptor, peer);
    };
}

SockArray::~SockArray()
{
    m_d->Listener.Close();
    for (std::size_t place = 0; place < m_d->Lines.size(); ++place)
        m_d->CloseLine(place);
}

int SockArray::HighestIndex() const
{
    return static_cast<int>(m_d->Lines.size());
}

SockState SockArray::State(int index) const
{
    if (index == 0)
        return m_d->Listener.IsListening() ? SockState::Listening : SockState::Closed;
    return m_d->At(index) != nullptr ? SockState::Connected : SockState::Closed;
}

void SockArray::SetLocalPort(int port)
{
    m_d->Port = port;
}

void SockArray::SetLocalAddress(const QString& address)
{
    const QHostAddress wanted =
        address.isEmpty() ? QHostAddress(QHostAddress::Any) : QHostAddress(address);
    if (wanted.isNull())
        throw NotPossible(QStringLiteral("Invalid address"));
    m_d->Address = wanted;
}

void SockArray::SetAccess(const HostAccess& access)
{
    m_d->Access = access;
}

void SockArray::SetEncoding(InputEncoding encoding)
{
    m_d->Encoding = encoding;
}

void SockArray::SetAnswers(bool on)
{
    m_d->Answers = on;
}

void SockArray::SetReadAhead(qint64 bytes)
{
    m_d->ReadAhead = bytes;
}

int SockArray::LocalPort() const
{
    return m_d->Listener.IsListening() ? m_d->Listener.Port() : m_d->Port;
}

void SockArray::Listen()
{
    if (m_d->Listener.IsListening())
        throw NotPossible(QStringLiteral("The socket is already listening"));
    // For port 0 the system would choose a port that no host knows.
    if (m_d->Port < LowestPort || m_d->Port > HighestPort)
        throw NotPossible(QStringLiteral("Invalid port number"));
    if (!m_d->Listener.Listen(m_d->Address, m_d->Port))
        throw NotPossible(m_d->Listener.ErrorText());
}

void SockArray::Load(int index)
{
    if (index != HighestIndex() + 1)
        throw NotPossible(QStringLiteral("The socket cannot be created"));
    m_d->Lines.push_back(nullptr);
}

void SockArray::Accept(int index, qintptr requestId)
{
    Line*& element = m_d->At(index);
    if (element != nullptr)
        throw NotPossible(QStringLiteral("The socket is in use"));
    const auto request = m_d->Requests.find(requestId);
    if (request == m_d->Requests.end())
        throw NotPossible(QStringLiteral("The connection is gone"));
    auto line = std::make_unique<Line>(this, index);
    line->setReadBufferSize(m_d->ReadAhead);
    if (!line->setSocketDescriptor(requestId))
        throw NotPossible(line->errorString());
    const PeerPlace peer = m_d->Requests.extract(request).mapped();

    // A host that lost its power never closes its connection; without keep-alive such sockets would
    // accumulate.
    line->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    line->Host = peer.Address.toString();
    line->Peer = PeerText(peer);
    line->Decoder = InputDecoder(m_d->Encoding);
    if (m_d->Answers)
        line->Answers = AnswerLine::Open(static_cast<int>(requestId), line->Peer, this);
    element = line.release();
    connect(element, &QTcpSocket::readyRead, this, [this, &line = *element] { m_d->Serve(line); });
    connect(element, &QTcpSocket::disconnected, this, [this, &line = *element] {
        line.EndedByHost = true;
        m_d->Serve(line);
    });
}

QString SockArray::GetData(int index)
{
    Line& line = m_d->Connected(index);
    line.Taken = true;
    return line.Decoder.Decode(line.readAll());
}

bool SockArray::TakeStrayNotice(int index)
{
    return m_d->Connected(index).Decoder.TakeStrayNotice();
}

void SockArray::Resume(int index)
{
    if (Line* line = m_d->At(index))
        m_d->Serve(*line);
}

std::shared_ptr<AnswerLine> SockArray::Answers(int index)
{
    return m_d->Connected(index).Answers;
}

void SockArray::Close(int index)
{
    if (index == 0)
        m_d->Listener.Close();
    else
        m_d->CloseLine(m_d->PlaceOf(index));
}

QString SockArray::RemoteHostIP(int index) const
{
    return m_d->Connected(index).Host;
}

QString SockArray::RemotePeer(int index) const
{
    return m_d->Connected(index).Peer;
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
