#pragma once

#include "store/CursorShape.h"
#include "store/StoreLock.h"
#include "store/StoreRow.h"
#include "store/StoreTable.h"
#include <QString>
#include <QVariantList>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace vantrel {

/// Stands for the number that the latest step of that name has given among those that are run
/// together.
struct NumberOfStep
{
    const char* Name = nullptr;
};

/// One of several statements that are run together, with the values that are bound in order.
struct StoreStep
{
    /// What is to be known of it: how many rows it has changed; the number of the one row that it
    /// has added to a table with a counter named `ID`; or how many rows it has found.
    enum class Gives { Changed, Added, Found } Result = Gives::Changed;
    QString Sql;
    /// Values, and `NumberOfStep` for what becomes known only while the steps are run.
    QVariantList Values;
    /// By which later ones refer to the number of the row that it adds; null if none does.
    const char* Name = nullptr;
};

/// One open database, whatever engine keeps it. `OpenStoreDatabase` opens one. Statements are in
/// the SQL that all engines understand, with question marks for values; what engines say in
/// different ways has a function of its own here. An operation fails with `StoreBusy` if another
/// session holds the lock for five seconds, otherwise with `StatementInvalid` and the engine's
/// words.
class StoreDatabase
{
public:
    using TakeRow = std::function<void(const StoreRow&)>;
    using TakeCursorRow = std::function<void(CursorRow&&)>;

    /// If two states are equal, no other connection has changed the database in between.
    struct State
    {
        qlonglong OthersVersion = 0;
        qlonglong FailureCount = 0;

        friend bool operator==(const State&, const State&) = default;
    };

    StoreDatabase() = default;
    StoreDatabase(const StoreDatabase&) = delete;
    StoreDatabase& operator=(const StoreDatabase&) = delete;
    virtual ~StoreDatabase() = default;

    /// What it was opened with.
    virtual QString Location() const = 0;
    /// Fails with `StatementInvalid` unless the tables of the layouts are there.
    virtual void RequireTables() = 0;
    /// Why the server that keeps the database cannot be reached; empty while it can. It is tried
    /// again by the next operation, at the earliest after a pause.
    virtual QString Trouble() const { return {}; }
    /// Finds out whether the server that keeps the database can be reached, unless it has just been
    /// heard of. Fails if it cannot.
    virtual void Ask() {}
    /// How many milliseconds a server is given for all late answers together until this is called
    /// again, instead of half a minute for each. Then it counts as away, and a lock that another
    /// session holds for nearly as long as `StoreBusy`.
    virtual void SetPatience(int /*milliseconds*/) {}

    /// Runs one statement or several that take no values.
    /// @return the first value of the first row, null if there is none
    virtual QVariant Execute(const QString& sql) = 0;
    /// Runs a statement with the values bound in order, and calls `take` for each row of its
    /// result.
    virtual void Select(const QString& sql, const QVariantList& values, const TakeRow& take) = 0;
    /// Runs a statement that returns no rows, with the values bound in order.
    /// @return the number of rows it has changed
    virtual int Change(const QString& sql, const QVariantList& values = {}) = 0;
    /// Runs a statement that inserts one row into a table with a counter named `ID`.
    /// @return the row's number
    virtual qlonglong Add(const QString& sql, const QVariantList& values) = 0;

    /// Runs statements one after the other until one fails, on a server in as few round trips as
    /// their size allows. A transaction must be open. @return what each of them gives
    virtual std::vector<qlonglong> RunAll(const std::vector<StoreStep>& steps);

    /// Why a commit may be lost when the machine fails; empty if it is as durable as it should be.
    virtual QString DoubtsAboutCommits() { return {}; }

    /// Begins a transaction that holds the lock from its start. Fails with `StoreBusy` if another
    /// session holds it for five seconds.
    /// @return false, with nothing changed, if a transaction is already open
    virtual bool Begin(const StoreLock& lock) = 0;
    /// The same, with the lock of the whole store.
    bool Begin() { return Begin(StoreLock::OfStore()); }
    /// Begins one whose lock is taken together with the next statement, in one round trip to a
    /// server. Where the lock is not given, that statement fails in its place, and no transaction
    /// is open after it.
    virtual bool BeginWithNext(const StoreLock& lock) { return Begin(lock); }
    /// Begins a transaction that only reads, all of it in the same state, and holds nobody up.
    virtual void BeginReading() = 0;
    /// Ends the transaction durably.
    virtual void Commit() = 0;
    virtual void Rollback() = 0;
    /// Whether the last commit failed in such a way that it is unknown whether the server has
    /// carried it out. Numbers of rows that were added in it are not given again in either case.
    virtual bool IsCommitInDoubt() const { return false; }
    /// Whether a transaction is open. An engine may roll one back by itself, as SQLite does if the
    /// disk is full or fails.
    virtual bool InTransaction() const = 0;
    /// Whether the database could only be opened for reading.
    virtual bool IsReadOnly() const = 0;
    /// The present state, for comparison with an earlier one.
    virtual State Now() = 0;
    /// Whether the state is known at a cost well below that of reading rows, so that it is worth
    /// keeping rows and asking whether they are still the same.
    virtual bool MayKeepRows() const = 0;

    /// Columns of a table in their order, the key among them; empty if there is no such table.
    virtual std::vector<StoreColumn> ColumnsOf(const QString& table) = 0;
    /// Makes the tables and indexes that are missing, within the transaction that is open, if one
    /// is.
    virtual void MakeTables(std::span<const StoreTable> tables) = 0;

    /// Reads the rows of a cursor's statement in their order.
    virtual void ReadRows(const CursorShape& shape, const TakeCursorRow& take) = 0;
    /// A cursor's statement, with its rows as they were read before; null for none.
    struct KnownRows
    {
        const CursorShape* Shape;
        const CursorRows* Rows;
    };
    /// The rows of several cursors' statements, on a server in one round trip unless some have
    /// changed. @return nothing for those whose rows are the known ones
    virtual std::vector<std::optional<CursorRows>> ReadChanged(const std::vector<KnownRows>& known);
    /// Adds a row to a table that cursors read, with a value for each of the columns named.
    /// @param unlessFound  if given, as one step with the check that this statement finds no row
    /// @return the key of the row; nothing if it was not added
    virtual std::optional<qlonglong> InsertRow(const QString& table, const QStringList& columns,
                                               const QVariantList& values,
                                               const SelectStatement* unlessFound) = 0;
    /// Adds rows, each with a value for each of the columns, which may be the key.
    virtual void InsertRows(const QString& table, const QStringList& columns,
                            const std::vector<QVariantList>& rows) = 0;
    /// Must be called after rows were added with keys of their own: those of later rows are higher.
    virtual void ContinueKeys(const QString& table) = 0;
    /// Changes values of one row that a cursor reads. @return the row as it is stored now, without
    /// values where the engine does not tell them; nothing if there is no row of that key
    virtual std::optional<CursorRow> UpdateRow(const CursorShape& shape, qlonglong key,
                                               const QStringList& columns,
                                               const QVariantList& values) = 0;
    /// @return false if there is no row of that key
    virtual bool DeleteRow(const QString& table, qlonglong key) = 0;

    /// What stands at the end of a query by which a statement chooses the row that it changes, so
    /// that it passes over rows that others are changing at that moment; empty where statements
    /// that change rows never run at the same time.
    /// @param alias  the name of the row's table in the query
    virtual QString PassingOverLocked(const QString& alias) const = 0;
    /// A column in a condition that no index is to be used for.
    virtual QString WithoutIndex(const QString& column) const = 0;
    /// From now on this connection leaves nothing in the files of what it deletes, where the engine
    /// can do that at once.
    virtual void OverwriteDeleted() = 0;
    /// Removes from the files what deleted rows of these tables have left there. No transaction may
    /// be open.
    /// @return false if copies may be left, since others use the database or own its tables
    virtual bool EmptyFiles(std::span<const StoreTable> tables) = 0;
};

/// The version of the tables in a store on a server, where several programs share one.
inline constexpr qlonglong StoreVersion = 3;

/// Opens an existing database, never creating one. Fails with `FileNotFound` if there is no file,
/// with `StatementInvalid` if it is no database.
/// @param location  the path of a file, or an address, see `IsPostgresAddress`
std::unique_ptr<StoreDatabase> OpenStoreDatabase(const QString& location);

} // namespace vantrel
