#pragma once

#include "store/StoreStatement.h"
#include <QCache>
#include <QString>
#include <QVariantList>
#include <memory>
#include <utility>

namespace vantrel {

/// One SQLite file and its prepared statements, used by `Connection` and `Recordset`. A station
/// loads and saves the same pages for every card, so the most recently used prepared statements are
/// kept. All operations fail like `FailAsStore`.
class StoreDatabase
{
public:
    enum class OpenMode { Existing, Create };

    /// If two states are equal, no other connection has changed the database in between.
    struct State
    {
        qlonglong OthersVersion = 0;
        qlonglong FailureCount = 0;

        friend bool operator==(const State&, const State&) = default;
    };

    /// Opens the file with durable commits and a lock timeout of five seconds. `Existing` never
    /// creates a file.
    StoreDatabase(const QString& path, OpenMode mode);

    /// Runs a statement without keeping it prepared.
    /// @return the first value of its first row, null if there is none
    QVariant Execute(const QString& sql);
    /// Runs a prepared statement: calls `show` once with the statement, then `take` for each of its
    /// rows.
    template <typename Show, typename Take>
    void Read(const QString& sql, Show&& show, Take&& take);
    /// Runs a prepared statement with the values bound in order, and calls `take` for each row of
    /// its result.
    template <typename Take>
    void Select(const QString& sql, const QVariantList& values, Take&& take);
    /// Runs a prepared statement that returns no rows, with the values bound in order.
    /// @return the number of rows it has changed
    int Change(const QString& sql, const QVariantList& values = {});
    /// The key of the last added row.
    qlonglong LastKey() const;

    /// Begins a transaction that holds the write lock from its start. Fails with `StoreBusy` if
    /// another session holds the lock for five seconds.
    /// @return false, with nothing changed, if a transaction is already open
    bool Begin();
    /// Whether a transaction is open. SQLite may roll one back automatically if the disk is full or
    /// fails.
    bool InTransaction() const;
    /// Whether the file could only be opened for reading.
    bool IsReadOnly() const;
    /// The present state, for comparison with an earlier one.
    State Now();
    /// Name of the column that is the row key of a table, empty if the table does not exist.
    QString KeyColumn(const QString& table);

private:
    struct Closer
    {
        void operator()(sqlite3* database) const;
    };
    /// Resets a statement when its scope ends, even by an exception, and counts failures.
    class Running
    {
    public:
        Running(StoreDatabase& database, const QString& sql);
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;
        ~Running();
        StoreStatement* operator->() { return m_statement.get(); }
        StoreStatement& operator*() { return *m_statement; }

    private:
        StoreDatabase& m_database;
        std::shared_ptr<StoreStatement> m_statement;
        int m_exceptions;
    };

    std::shared_ptr<StoreStatement> Prepared(const QString& sql);

    std::unique_ptr<sqlite3, Closer> m_database;
    QCache<QString, std::shared_ptr<StoreStatement>> m_statements;
    qlonglong m_failures = 0;
};

template <typename Take>
void StoreDatabase::Select(const QString& sql, const QVariantList& values, Take&& take)
{
    Running statement(*this, sql);
    statement->Bind(values);
    while (statement->Step())
        take(std::as_const(*statement));
}

template <typename Show, typename Take>
void StoreDatabase::Read(const QString& sql, Show&& show, Take&& take)
{
    Running statement(*this, sql);
    // SQLite notices a changed table only when the statement is stepped.
    bool isOnRow = statement->Step();
    show(std::as_const(*statement));
    for (; isOnRow; isOnRow = statement->Step())
        take(std::as_const(*statement));
}

} // namespace vantrel
