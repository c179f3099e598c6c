#pragma once

#include "store/StoreStatement.h"
#include <QCache>
#include <QString>
#include <QVariantList>
#include <memory>
#include <utility>

namespace vantrel {

/// One SQLite file and its prepared statements; what `Connection` and `Recordset` stand on. A
/// station loads and saves the same pages for every card, so each statement is prepared once and
/// the most recently used ones are kept. All operations fail like `FailAsStore`.
class StoreDatabase
{
public:
    enum class OpenMode { Existing, Create };

    /// Two states that are equal hold the same rows, but for what this object has changed itself.
    struct State
    {
        qlonglong OthersVersion = 0;
        qlonglong FailureCount = 0;

        friend bool operator==(const State&, const State&) = default;
    };

    /// Opens the file with full durability and five seconds of waiting for a lock. With `Existing`
    /// no file is ever made.
    StoreDatabase(const QString& path, OpenMode mode);

    /// Runs a statement that is not worth keeping.
    /// @return the first value of its first row, a null where it gives none
    QVariant Execute(const QString& sql);
    /// Shows a prepared statement to `show`, then each of its rows to `take`.
    template <typename Show, typename Take>
    void Read(const QString& sql, Show&& show, Take&& take);
    /// Runs a prepared statement that gives no rows, with the values bound in order.
    /// @return how many rows it has written
    int Change(const QString& sql, const QVariantList& values = {});
    /// The key of the row added last.
    qlonglong LastKey() const;

    /// Begins a transaction that holds the write lock from its start. Fails with `StoreBusy` where
    /// another session keeps the lock.
    /// @return false, with nothing changed, where a transaction is open already
    bool Begin();
    /// Whether a transaction is open. The store ends one by itself where a disk is full or fails.
    bool InTransaction() const;
    /// Whether others may have changed the store: asked anew with every call.
    State Now();
    /// Name of the column that is the key of a table's rows, empty for a table that is not there.
    QString KeyColumn(const QString& table);

private:
    struct Closer
    {
        void operator()(sqlite3* database) const;
    };
    /// Makes a statement ready again whatever becomes of its rows, and counts what fails.
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

template <typename Show, typename Take>
void StoreDatabase::Read(const QString& sql, Show&& show, Take&& take)
{
    Running statement(*this, sql);
    // Only a step sees what another session has made of the table.
    bool isOnRow = statement->Step();
    show(std::as_const(*statement));
    for (; isOnRow; isOnRow = statement->Step())
        take(std::as_const(*statement));
}

} // namespace vantrel
