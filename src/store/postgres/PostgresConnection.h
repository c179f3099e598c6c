#pragma once

#include "store/postgres/PostgresValues.h"
#include "store/postgres/PreparedStatements.h"
#include <QElapsedTimer>
#include <QString>
#include <libpq-fe.h>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// A connection to a PostgreSQL server that comes back by itself when the server does. A pooler
/// that lends connections out for the time of a transaction may stand in between: then nothing
/// outlives a transaction on the server. Without one, statements that come again are prepared. An
/// operation fails with `StoreBusy` if the server is away or the lock is not given within five
/// seconds, otherwise with `StatementInvalid` and the server's words.
class PostgresConnection
{
public:
    /// A statement with its values.
    struct Step
    {
        QByteArray Sql;
        PostgresParameters Parameters = PostgresParameters();
    };

    /// Connects. Fails if the server does not answer in time.
    explicit PostgresConnection(const QString& address);

    /// Runs statements without values, in one round trip.
    /// @return the result of the last one that returns rows; null if there is none
    PostgresResult Run(const QByteArray& sql);
    /// Runs one statement.
    PostgresResult Run(const Step& step);
    /// Runs several statements in one round trip, each only if those before it have succeeded.
    /// @return the results in their order
    std::vector<PostgresResult> RunAll(const std::vector<Step>& steps);

    /// Begins a transaction with these statements, which are sent together with those that come
    /// next. Where one of them fails, the next statement fails with it and no transaction is open.
    void BeginWithNext(std::vector<Step> opening) { m_opening = std::move(opening); }
    /// Ends the transaction without keeping what it has written.
    void Rollback();

    /// Finds out whether the server is there and may be written, unless it has answered within the
    /// last two seconds. A connection that the server has closed is noticed in any case. Must not
    /// be called within a transaction.
    void Ask();
    /// Waits at most so long for all answers together until this is called again, those apart that
    /// come within 25 milliseconds; or half a minute for each answer unless it was called.
    void SetPatience(int milliseconds);
    /// How long it has waited since that, or since it was made.
    int WaitedMs() const;
    /// Waits half a minute for each answer again.
    void WaitForEachAnswer() { m_patienceMs.reset(); }
    /// How many milliseconds may be waited for the next answer.
    int LeftMs() const;

    /// Differs from one connection to the next. Empty where a pooler stands between, behind which
    /// the server itself may be replaced unseen.
    QByteArray Era();

    bool InTransaction() const;
    const QString& Address() const { return m_address; }
    /// What people are shown of the address.
    const QString& Shown() const { return m_shown; }
    /// Why the server cannot be reached; empty while it can.
    const QString& Trouble() const { return m_trouble; }

private:
    struct Closer
    {
        void operator()(PGconn* connection) const { PQfinish(connection); }
    };

    /// The connection, made anew if it was lost.
    PGconn* Ready();
    void Connect();
    /// Lets the next attempt begin with the next of the hosts in the address, if it has several.
    void GoToNextHost();
    [[noreturn]] void FailAsAway(const QString& why);
    [[noreturn]] void FailAsSilent();
    [[noreturn]] void Fail(const PGresult* result);
    /// Must be called when a statement has ended: the library never shrinks its buffers, so a
    /// connection that holds large ones is given up as soon as no transaction is open.
    void GiveBackMemory();
    /// Whether the other end is the server itself: a pooler tells another process number.
    bool IsDirect();
    /// Makes known to the server what of these statements has come before.
    void Prepare(const std::vector<const Step*>& steps);
    /// Sends a statement, by its name where the server knows it.
    bool Send(PGconn* connection, const Step& step) const;
    /// Waits for the results of that many statements which were sent together, failures among them.
    std::vector<PostgresResult> ResultsOf(std::size_t statements);
    void NoteSize(const PostgresParameters& values);
    void NoteSize(const PGresult* result);
    /// Sends what is left to be sent.
    void Flush();
    /// Waits for the next result. @return null at the end of a statement's results
    PostgresResult Next();
    /// Waits for the socket, at most so long. @return false if that is over
    bool WaitAtMost(short events, int milliseconds);
    /// Waits until the socket may be read, or written too. @return false if that takes too long
    bool Wait(bool forWriting);

    QString m_address;
    QString m_shown;
    std::unique_ptr<PGconn, Closer> m_connection;
    PreparedStatements m_prepared;
    /// What begins the transaction that the next statement belongs to; empty if nothing is to be
    /// begun.
    std::vector<Step> m_opening;
    QString m_trouble;
    /// While the server is away: since when it has not been tried, and for how long it is left
    /// alone.
    QElapsedTimer m_tried;
    qint64 m_pauseMs = 0;
    /// For all answers together; nothing if each has a time of its own.
    std::optional<int> m_patienceMs;
    /// Of that.
    qint64 m_waitedNs = 0;
    /// Index of the host that is tried first.
    qsizetype m_firstHost = 0;
    /// Since the server's last answer.
    QElapsedTimer m_answered;
    /// Whether so much was sent or received that the library holds large buffers.
    bool m_isLarge = false;
    /// Whether the other end is the server itself; nothing if it was not asked yet.
    std::optional<bool> m_isDirect;
    /// How many connections were made.
    int m_made = 0;
};

} // namespace vantrel
