#include "ports/AnswerLine.h"
#include <QLoggingCategory>
#include <QPointer>
#include <QTimer>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(stationLog, "vantrel.station")

/// How long a host may take to read its last answers.
constexpr std::chrono::seconds LastAnswersTime{60};

} // namespace

std::shared_ptr<AnswerLine> AnswerLine::Open(int descriptor, const QString& peer, QObject* parent)
{
    const int own = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
    if (own < 0)
        return nullptr;
    auto* line = new AnswerLine(own, peer, parent);
    // The parent may be gone before the last owner.
    return {line, [guard = QPointer(line)](AnswerLine*) {
                if (guard)
                    guard->LetGo();
            }};
}

AnswerLine::AnswerLine(int descriptor, QString peer, QObject* parent)
    : QObject(parent), m_descriptor(descriptor), m_peer(std::move(peer)),
      m_writable(descriptor, QSocketNotifier::Write)
{
    m_writable.setEnabled(false);
    connect(&m_writable, &QSocketNotifier::activated, this, &AnswerLine::Flush);
}

AnswerLine::~AnswerLine()
{
    Close();
}

void AnswerLine::Send(const QByteArray& bytes)
{
    if (m_gone)
        return;
    m_unsent += bytes;
    Flush();
    if (m_unsent.size() <= Limit)
        return;
    qCWarning(stationLog).noquote() << m_peer << "does not read its answers and is disconnected";
    // The socket that receives from this host sees the end of the connection.
    ::shutdown(m_descriptor, SHUT_RDWR);
    Abandon();
}

void AnswerLine::Flush()
{
    const bool wasFull = IsFull();
    qsizetype sent = 0;
    while (sent < m_unsent.size()) {
        const ssize_t count =
            ::send(m_descriptor, m_unsent.constData() + sent,
                   static_cast<std::size_t>(m_unsent.size() - sent), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count >= 0) {
            sent += count;
        } else if (errno != EINTR) {
            if (errno != EAGAIN && errno != EWOULDBLOCK)
                Abandon();
            break;
        }
    }
    if (!m_gone) {
        m_unsent.remove(0, sent);
        m_writable.setEnabled(!m_unsent.isEmpty());
        if (wasFull && !IsFull())
            Q_EMIT Drained();
    }
    if (m_letGo && m_unsent.isEmpty())
        Close();
}

void AnswerLine::Abandon()
{
    const bool wasFull = IsFull();
    m_gone = true;
    m_unsent.clear();
    m_writable.setEnabled(false);
    if (wasFull)
        Q_EMIT Drained();
}

void AnswerLine::LetGo()
{
    m_letGo = true;
    if (m_unsent.isEmpty())
        Close();
    else
        QTimer::singleShot(LastAnswersTime, this, &AnswerLine::Close);
}

void AnswerLine::Close()
{
    if (m_descriptor < 0)
        return;
    Abandon();
    ::close(std::exchange(m_descriptor, -1));
    // The notifier may be the caller.
    deleteLater();
}

} // namespace vantrel
