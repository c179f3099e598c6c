#include "Workers.h"
#include "base/Failure.h"
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantrel::print {

namespace {

constexpr std::size_t MostOfOne = 2;

/// @return false at the end
bool ReadAll(int socket, char* to, qsizetype count)
{
    while (count > 0) {
        const ssize_t got = ::read(socket, to, static_cast<std::size_t>(count));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        to += got;
        count -= got;
    }
    return true;
}

bool WriteAll(int socket, const char* from, qsizetype count)
{
    while (count > 0) {
        const ssize_t put = ::send(socket, from, static_cast<std::size_t>(count), MSG_NOSIGNAL);
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return false;
        from += put;
        count -= put;
    }
    return true;
}

/// A message: its length, then its bytes.
bool Send(int socket, const QByteArray& bytes)
{
    const qsizetype size = bytes.size();
    return WriteAll(socket, reinterpret_cast<const char*>(&size), sizeof(size)) &&
           WriteAll(socket, bytes.constData(), size);
}

std::optional<QByteArray> Receive(int socket)
{
    qsizetype size = 0;
    if (!ReadAll(socket, reinterpret_cast<char*>(&size), sizeof(size)))
        return {};
    QByteArray bytes(size, Qt::Uninitialized);
    if (!ReadAll(socket, bytes.data(), size))
        return {};
    return bytes;
}

std::vector<RowResult> FailAll(const Batch& batch, const QString& reason)
{
    std::vector<RowResult> results;
    for (const BatchRow& row : batch.Rows)
        results.push_back({.Number = row.Number, .Line = row.Line, .Cards = {}, .Reason = reason});
    return results;
}

} // namespace

Workers::Workers(int count, const MakeWork& make)
{
    m_workers.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        Worker worker;
        Start(worker, m_workers, make);
        m_workers.push_back(worker);
    }
}

Workers::~Workers()
{
    for (const Worker& worker : m_workers)
        ::close(worker.Socket);
    for (const Worker& worker : m_workers)
        while (::waitpid(worker.Process, nullptr, 0) < 0 && errno == EINTR)
            continue;
}

void Workers::Start(Worker& worker, const std::vector<Worker>& others, const MakeWork& make)
{
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("No further process can start."));
    worker.Process = ::fork();
    if (worker.Process == 0) {
        ::close(ends[0]);
        // Else a worker would keep the others' sockets open behind the end of the program.
        for (const Worker& other : others)
            ::close(other.Socket);
        // A terminal's interrupt reaches all processes; the first one lets the others finish.
        std::signal(SIGINT, SIG_IGN);
        std::signal(SIGTERM, SIG_IGN);
        std::signal(SIGHUP, SIG_IGN);
        Serve(ends[1], make);
        ::_exit(0);
    }
    ::close(ends[1]);
    worker.Socket = ends[0];
    if (worker.Process < 0) {
        ::close(ends[0]);
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("No further process can start."));
    }
}

void Workers::Serve(int socket, const MakeWork& make)
{
    Work work;
    QString trouble;
    while (const std::optional<QByteArray> message = Receive(socket)) {
        const Batch batch = BatchOf(*message);
        try {
            if (!work && trouble.isEmpty())
                work = make();
        } catch (const Failure& failure) {
            trouble = failure.Text();
        }
        if (!Send(socket, BytesOf(work ? work(batch) : FailAll(batch, trouble))))
            return;
    }
}

Workers::Worker* Workers::Freest()
{
    Worker* freest = nullptr;
    for (Worker& worker : m_workers) {
        const bool isThere = worker.Process > 0 && worker.Batches.size() < MostOfOne;
        if (isThere && (freest == nullptr || worker.Batches.size() < freest->Batches.size()))
            freest = &worker;
    }
    return freest;
}

bool Workers::HasRoom() const
{
    return std::any_of(m_workers.begin(), m_workers.end(),
                       [](const Worker& worker) { return worker.Batches.size() < MostOfOne; });
}

bool Workers::IsBusy() const
{
    return std::any_of(m_workers.begin(), m_workers.end(),
                       [](const Worker& worker) { return !worker.Batches.empty(); });
}

void Workers::Give(qint64 id, const Batch& batch)
{
    Worker* worker = Freest();
    worker->Batches.push_back(id);
    // A worker that has ended is noticed by `Take`.
    Send(worker->Socket, BytesOf(batch));
}

Workers::Done Workers::Take()
{
    for (;;) {
        std::vector<pollfd> sockets;
        std::vector<Worker*> busy;
        for (Worker& worker : m_workers) {
            if (worker.Batches.empty())
                continue;
            sockets.push_back({.fd = worker.Socket, .events = POLLIN, .revents = 0});
            busy.push_back(&worker);
        }
        ::poll(sockets.data(), sockets.size(), -1);
        for (std::size_t i = 0; i < sockets.size(); ++i) {
            if (sockets[i].revents != 0)
                return TakeFrom(*busy[i]);
        }
    }
}

Workers::Done Workers::TakeFrom(Worker& worker)
{
    Done done;
    done.Id = worker.Batches.front();
    worker.Batches.erase(worker.Batches.begin());
    if (const std::optional<QByteArray> message = Receive(worker.Socket))
        done.Results = ResultsOf(*message);
    return done;
}

} // namespace vantrel::print
