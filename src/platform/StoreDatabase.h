#pragma once

#include <QCache>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

class QSqlError;

namespace vantrel {

/// One SQLite file and its prepared statements; what `Connection` and `Recordset` stand on. A
/// station loads and saves the same pages for every card, so each statement is prepared once and
/// the most recently used ones are kept.
class StoreDatabase
{
public:
    enum class OpenMode { Existing, Create };

    StoreDatabase();
    StoreDatabase(const StoreDatabase&) = delete;
    StoreDatabase& operator=(const StoreDatabase&) = delete;
    ~StoreDatabase();

    /// Opens the file with full durability and five seconds of waiting for a lock. With `Existing`
    /// no file is ever made. Fails with `StatementInvalid` or `StoreBusy`.
    void Open(const QString& path, OpenMode mode);

    /// Fails with what the store says: `StoreBusy` for a lock, else `StatementInvalid`.
    [[noreturn]] static void FailWith(const QSqlError& error);

    /// Runs a statement that is not worth keeping. Fails with `StatementInvalid` or `StoreBusy`.
    /// @return the first value of its first row, a null where it gives none
    QVariant Execute(const QString& sql);
    /// Runs a prepared statement with the values bound in order. Fails like `Execute`. The query is
    /// valid until the next call; whoever reads its rows calls `finish` behind the last.
    QSqlQuery& Run(const QString& sql, const QVariantList& values = {});
    /// Begins a transaction that holds the write lock from its start. Fails with `StoreBusy` where
    /// another session keeps the lock, or like `Execute`.
    /// @return false, with nothing changed, where a transaction is open already
    bool Begin();
    /// Name of the column that is the key of a table's rows.
    QString KeyColumn(const QString& table) const;

private:
    QSqlQuery& Prepared(const QString& sql);

    QString m_name;
    QSqlDatabase m_database;
    QCache<QString, QSqlQuery> m_statements;
};

} // namespace vantrel
