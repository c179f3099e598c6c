#include "store/postgres/PostgresConnection.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "store/postgres/PostgresAddress.h"
#include <algorithm>
#include <cerrno>
#include <map>
#include <poll.h>

namespace vantrel {

namespace {

/// The windows stand still while the server is tried.
constexpr int ConnectPatienceMs = 1000;
/// For the answer to a statement.
constexpr int AnswerPatienceMs = 30'000;
/// A server that has answered within that time is there.
constexpr qint64 FreshAnswerMs = 2000;
/// A server that is away is tried again after a pause that doubles each time.
constexpr qint64 FirstPauseMs = 250;
constexpr qint64 LongestPauseMs = 4000;
constexpr int TlsLookMs = 20;
/// An answer within that time is none that is waited for.
constexpr qint64 PromptAnswerMs = 25;
constexpr qint64 NsInMs = 1'000'000;
/// Bytes of values for which the library's buffers are large.
constexpr std::size_t LargeSize = 1 << 20;

constexpr QLatin1StringView LockNotGiven{"55P03"};
constexpr QLatin1StringView Deadlock{"40P01"};
constexpr QLatin1StringView Unserializable{"40001"};
/// Of statements that were prepared: the table has other columns now, somebody has removed the
/// statement, or has prepared one of its name.
constexpr QLatin1StringView PlanOutdated{"0A000"};
constexpr QLatin1StringView StatementGone{"26000"};
constexpr QLatin1StringView StatementThere{"42P05"};

/// What the address may set otherwise comes before it, what it may not behind it. A dead host is
/// noticed within seconds, however long an answer may take.
constexpr const char* Keywords[] = {"fallback_application_name",
                                    "connect_timeout",
                                    "tcp_user_timeout",
                                    "keepalives_idle",
                                    "keepalives_interval",
                                    "keepalives_count",
                                    "dbname",
                                    "client_encoding",
                                    "host",
                                    "hostaddr",
                                    "port",
                                    nullptr};

bool WaitFor(int socket, short events, int milliseconds)
{
    pollfd waiting{.fd = socket, .events = events, .revents = 0};
    int ready = 0;
    do
        ready = ::poll(&waiting, 1, milliseconds);
    while (ready < 0 && errno == EINTR);
    return ready > 0;
}

QString FirstLine(const char* message)
{
    return QString::fromUtf8(message).section(QLatin1Char('\n'), 0, 0).trimmed();
}

bool IsFailed(const PGresult* result)
{
    const ExecStatusType status = PQresultStatus(result);
    return status == PGRES_FATAL_ERROR || status == PGRES_BAD_RESPONSE;
}

std::vector<PostgresResult>::const_iterator FirstFailed(const std::vector<PostgresResult>& results)
{
    return std::find_if(results.begin(), results.end(),
                        [](const PostgresResult& result) { return IsFailed(result.get()); });
}

/// Whether a statement failed that would not have failed if it had been sent whole.
bool IsOfPreparing(const PGresult* result)
{
    const QLatin1StringView state(PQresultErrorField(result, PG_DIAG_SQLSTATE));
    return state == PlanOutdated || state == StatementGone || state == StatementThere;
}

} // namespace

PostgresConnection::PostgresConnection(const QString& address)
    : m_address(address), m_shown(ShownAddress(address))
{
    Connect();
}

void PostgresConnection::Connect()
{
    const QByteArray address = m_address.toUtf8();
    const ServerHosts hosts = HostsOf(m_address, m_firstHost);
    // An empty value leaves the setting to the address and to the library.
    const char* const values[] = {"vantrel",
                                  "2",
                                  "3000",
                                  "2",
                                  "1",
                                  "3",
                                  address.constData(),
                                  "UTF8",
                                  hosts.Names.constData(),
                                  hosts.Numbers.constData(),
                                  hosts.Ports.constData(),
                                  nullptr};
    constexpr int expandDbname = 1;
    m_connection.reset(PQconnectStartParams(Keywords, values, expandDbname));
    const int patienceMs = std::min(ConnectPatienceMs, LeftMs());
    QElapsedTimer since;
    since.start();
    PostgresPollingStatusType status = PGRES_POLLING_WRITING;
    while (m_connection && PQstatus(m_connection.get()) != CONNECTION_BAD &&
           status != PGRES_POLLING_OK && status != PGRES_POLLING_FAILED) {
        const auto left = static_cast<int>(patienceMs - since.elapsed());
        if (left <= 0 || !WaitAtMost(status == PGRES_POLLING_READING ? POLLIN : POLLOUT, left)) {
            GoToNextHost();
            FailAsSilent();
        }
        status = PQconnectPoll(m_connection.get());
    }
    if (status != PGRES_POLLING_OK)
        FailAsAway(m_connection ? FirstLine(PQerrorMessage(m_connection.get())) : QString());
    PQsetnonblocking(m_connection.get(), 1);
    // What a server has to say beside its results is no business of the operator.
    PQsetNoticeReceiver(
        m_connection.get(), [](void*, const PGresult*) {}, nullptr);
    m_prepared.Reset();
    m_isDirect.reset();
    m_isLarge = false;
    ++m_made;
    m_trouble.clear();
    m_pauseMs = 0;
    m_answered.start();
}

// The library goes on to the next host by itself when one refuses, but not when one is silent.
void PostgresConnection::GoToNextHost()
{
    ++m_firstHost;
}

void PostgresConnection::Ask()
{
    Ready();
    if (m_answered.isValid() && !m_answered.hasExpired(FreshAnswerMs))
        return;
    const PostgresResult answer = Run(Step{"SELECT pg_is_in_recovery()"});
    if (PostgresValue(answer.get(), 0, 0).toBool())
        FailAsAway(QStringLiteral("it is a replica, which cannot be written"));
}

void PostgresConnection::FailAsAway(const QString& why)
{
    m_connection.reset();
    m_opening.clear();
    m_trouble = QStringLiteral("The store %1 is away: %2.").arg(m_shown, why);
    m_pauseMs = std::clamp(m_pauseMs * 2, FirstPauseMs, LongestPauseMs);
    m_tried.start();
    throw Failure(FailureNumber::StoreBusy, m_trouble);
}

void PostgresConnection::FailAsSilent()
{
    FailAsAway(m_patienceMs ? QStringLiteral("it does not answer in time")
                            : QStringLiteral("it does not answer"));
}

PGconn* PostgresConnection::Ready()
{
    // A server that was restarted has closed the connection meanwhile, perhaps behind a last word.
    // Within a transaction that must be noticed by the statement itself.
    if (m_connection && PQtransactionStatus(m_connection.get()) == PQTRANS_IDLE) {
        while (WaitFor(PQsocket(m_connection.get()), POLLIN, 0) &&
               PQconsumeInput(m_connection.get()) == 1)
            continue;
    }
    if (m_connection && PQstatus(m_connection.get()) == CONNECTION_OK)
        return m_connection.get();
    m_connection.reset();
    // When the time for all answers is over, nothing is tried.
    if (!m_trouble.isEmpty() && (!m_tried.hasExpired(m_pauseMs) || LeftMs() <= 0)) {
        m_opening.clear();
        throw Failure(FailureNumber::StoreBusy, m_trouble);
    }
    Connect();
    return m_connection.get();
}

void PostgresConnection::Fail(const PGresult* result)
{
    const QLatin1StringView state(PQresultErrorField(result, PG_DIAG_SQLSTATE));
    const QString message = FirstLine(PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY));
    if (PQstatus(m_connection.get()) == CONNECTION_BAD)
        FailAsAway(message.isEmpty() ? FirstLine(PQerrorMessage(m_connection.get())) : message);
    if (IsOfPreparing(result))
        m_prepared.Forbid();
    const bool busy = state == LockNotGiven || state == Deadlock || state == Unserializable;
    throw Failure(busy ? FailureNumber::StoreBusy : FailureNumber::StatementInvalid,
                  QStringLiteral("The layout database: ") + message);
}

void PostgresConnection::NoteSize(const PostgresParameters& values)
{
    m_isLarge = m_isLarge || values.Size() > LargeSize;
}

void PostgresConnection::NoteSize(const PGresult* result)
{
    m_isLarge = m_isLarge || (result != nullptr && PQresultMemorySize(result) > LargeSize);
}

void PostgresConnection::GiveBackMemory()
{
    if (!m_isLarge || InTransaction())
        return;
    m_isLarge = false;
    m_connection.reset();
}

void PostgresConnection::SetPatience(int milliseconds)
{
    m_patienceMs = milliseconds;
    m_waitedNs = 0;
}

int PostgresConnection::WaitedMs() const
{
    return static_cast<int>(m_waitedNs / NsInMs);
}

int PostgresConnection::LeftMs() const
{
    return m_patienceMs ? std::max(0, *m_patienceMs - WaitedMs()) : AnswerPatienceMs;
}

bool PostgresConnection::WaitAtMost(short events, int milliseconds)
{
    QElapsedTimer waited;
    waited.start();
    const bool isReady = WaitFor(PQsocket(m_connection.get()), events, milliseconds);
    m_waitedNs += waited.nsecsElapsed();
    return isReady;
}

bool PostgresConnection::Wait(bool forWriting)
{
    const auto events = static_cast<short>(POLLIN | (forWriting ? POLLOUT : 0));
    int left = LeftMs();
    if (PQsslInUse(m_connection.get()) == 0)
        return WaitAtMost(events, left);
    // What TLS has decrypted and the library has not yet taken is not seen at the socket.
    for (; left > 0; left -= TlsLookMs) {
        if (WaitAtMost(events, std::min(left, TlsLookMs)) ||
            PQconsumeInput(m_connection.get()) == 0 || PQisBusy(m_connection.get()) == 0)
            return true;
    }
    return false;
}

void PostgresConnection::Flush()
{
    int left = 0;
    while ((left = PQflush(m_connection.get())) == 1) {
        if (!Wait(true))
            FailAsSilent();
        if (PQconsumeInput(m_connection.get()) == 0)
            break;
    }
    if (left < 0 || PQstatus(m_connection.get()) == CONNECTION_BAD)
        FailAsAway(FirstLine(PQerrorMessage(m_connection.get())));
}

PostgresResult PostgresConnection::Next()
{
    const qint64 before = m_waitedNs;
    while (PQisBusy(m_connection.get()) == 1) {
        if (!Wait(false))
            FailAsSilent();
        if (PQconsumeInput(m_connection.get()) == 0)
            break; // What the server said last is read below.
    }
    // However much there is to ask, such as for a page of a thousand objects, a server that answers
    // at once is not away.
    if (m_waitedNs - before < PromptAnswerMs * NsInMs)
        m_waitedNs = before;
    return PostgresResult(PQgetResult(m_connection.get()));
}

void PostgresConnection::Rollback()
{
    // What was never begun needs no end.
    if (std::exchange(m_opening, {}).empty())
        Run(QByteArray("ROLLBACK"));
}

PostgresResult PostgresConnection::Run(const QByteArray& sql)
{
    if (!m_opening.empty())
        RunAll({});
    if (PQsendQuery(Ready(), sql.constData()) == 0)
        FailAsAway(FirstLine(PQerrorMessage(m_connection.get())));
    Flush();
    PostgresResult rows;
    PostgresResult failed;
    while (PostgresResult result = Next()) {
        if (IsFailed(result.get()))
            failed = std::move(result);
        else if (PQresultStatus(result.get()) == PGRES_TUPLES_OK)
            rows = std::move(result);
    }
    if (failed)
        Fail(failed.get());
    m_answered.start();
    NoteSize(rows.get());
    GiveBackMemory();
    return rows;
}

bool PostgresConnection::Send(PGconn* connection, const Step& step) const
{
    constexpr int textResults = 0;
    const PostgresParameters& values = step.Parameters;
    const QByteArray name = m_prepared.NameOf(step.Sql, values);
    const int sent = name.isEmpty()
                         ? PQsendQueryParams(connection, step.Sql.constData(), values.Count(),
                                             values.Types(), values.Values().data(),
                                             values.Lengths().data(), values.Formats(), textResults)
                         : PQsendQueryPrepared(connection, name.constData(), values.Count(),
                                               values.Values().data(), values.Lengths().data(),
                                               values.Formats(), textResults);
    return sent == 1;
}

bool PostgresConnection::IsDirect()
{
    if (!m_isDirect) {
        const PostgresResult told = Run(QByteArray("SELECT pg_backend_pid()"));
        m_isDirect = PostgresValue(told.get(), 0, 0).toInt() == PQbackendPID(m_connection.get());
    }
    return *m_isDirect;
}

QByteArray PostgresConnection::Era()
{
    Ready();
    return IsDirect() ? QByteArray::number(m_made) + ' ' : QByteArray();
}

void PostgresConnection::Prepare(const std::vector<const Step*>& steps)
{
    // In one that has failed nothing is prepared, and the statement tells so itself.
    if (PQtransactionStatus(m_connection.get()) == PQTRANS_INERROR)
        return;
    std::map<QByteArray, const Step*> unknown;
    for (const Step* step : steps)
        if (const QByteArray name = m_prepared.NameToPrepare(step->Sql, step->Parameters);
            !name.isEmpty())
            unknown.emplace(name, step);
    if (unknown.empty())
        return;
    if (!IsDirect()) {
        m_prepared.Forbid();
        return;
    }
    PGconn* connection = m_connection.get();
    // A failure would end a transaction up to the savepoint.
    const bool inTransaction = PQtransactionStatus(connection) == PQTRANS_INTRANS;
    PQenterPipelineMode(connection);
    if (inTransaction)
        Send(connection, {"SAVEPOINT vantrelprepare"});
    for (const auto& [name, step] : unknown)
        PQsendPrepare(connection, name.constData(), step->Sql.constData(), step->Parameters.Count(),
                      step->Parameters.Types());
    if (inTransaction)
        Send(connection, {"RELEASE SAVEPOINT vantrelprepare"});
    PQpipelineSync(connection);
    Flush();
    const std::vector<PostgresResult> results = ResultsOf(unknown.size() + (inTransaction ? 2 : 0));
    if (FirstFailed(results) != results.end()) {
        // The statement itself is sent whole and tells what is wrong with it.
        m_prepared.Forbid();
        if (inTransaction)
            Run(QByteArray("ROLLBACK TO SAVEPOINT vantrelprepare; RELEASE SAVEPOINT "
                           "vantrelprepare"));
        return;
    }
    for (const auto& [name, step] : unknown)
        m_prepared.Add(name);
}

PostgresResult PostgresConnection::Run(const Step& step)
{
    if (!m_opening.empty())
        return std::move(RunAll({step}).front());
    Ready();
    Prepare({&step});
    NoteSize(step.Parameters);
    if (!Send(m_connection.get(), step))
        FailAsAway(FirstLine(PQerrorMessage(m_connection.get())));
    Flush();
    PostgresResult last;
    while (PostgresResult result = Next())
        last = std::move(result);
    if (IsOfPreparing(last.get()) && !InTransaction()) {
        m_prepared.Forbid();
        return Run(step);
    }
    if (!last || IsFailed(last.get()))
        Fail(last.get());
    m_answered.start();
    NoteSize(last.get());
    GiveBackMemory();
    return last;
}

std::vector<PostgresResult> PostgresConnection::RunAll(const std::vector<Step>& steps)
{
    const std::vector<Step> opening = std::exchange(m_opening, {});
    Ready();
    std::vector<const Step*> all;
    all.reserve(opening.size() + steps.size());
    for (const Step& step : opening)
        all.push_back(&step);
    for (const Step& step : steps)
        all.push_back(&step);
    Prepare(all);
    PGconn* connection = m_connection.get();
    PQenterPipelineMode(connection);
    for (const Step* step : all) {
        NoteSize(step->Parameters);
        Send(connection, *step);
    }
    PQpipelineSync(connection);
    Flush();
    std::vector<PostgresResult> results = ResultsOf(all.size());
    const auto begun = results.begin() + std::ssize(opening);
    if (const auto failed = FirstFailed(results); failed != results.end()) {
        try {
            Fail(failed->get());
        } catch (const Failure&) {
            if (failed < begun && InTransaction())
                Skip("roll back", [&] { Run(QByteArray("ROLLBACK")); });
            throw;
        }
    }
    results.erase(results.begin(), begun);
    m_answered.start();
    for (const PostgresResult& result : results)
        NoteSize(result.get());
    GiveBackMemory();
    return results;
}

std::vector<PostgresResult> PostgresConnection::ResultsOf(std::size_t statements)
{
    PGconn* connection = m_connection.get();
    std::vector<PostgresResult> results;
    for (std::size_t i = 0; i < statements && PQstatus(connection) != CONNECTION_BAD; ++i) {
        while (PostgresResult result = Next())
            results.push_back(std::move(result));
    }
    // The end of the pipeline. A connection that was lost before it is only noticed here.
    const PostgresResult end = PQstatus(connection) == CONNECTION_BAD ? nullptr : Next();
    if (PQresultStatus(end.get()) != PGRES_PIPELINE_SYNC ||
        PQstatus(connection) == CONNECTION_BAD) {
        const auto failed = FirstFailed(results);
        const char* why = failed == results.end()
                              ? PQerrorMessage(connection)
                              : PQresultErrorField(failed->get(), PG_DIAG_MESSAGE_PRIMARY);
        FailAsAway(FirstLine(why));
    }
    PQexitPipelineMode(connection);
    return results;
}

bool PostgresConnection::InTransaction() const
{
    if (!m_opening.empty())
        return true;
    if (!m_connection || PQstatus(m_connection.get()) != CONNECTION_OK)
        return false;
    const PGTransactionStatusType status = PQtransactionStatus(m_connection.get());
    return status == PQTRANS_INTRANS || status == PQTRANS_INERROR || status == PQTRANS_ACTIVE;
}

} // namespace vantrel
