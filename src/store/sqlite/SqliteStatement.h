#pragma once

#include "store/StoreRow.h"
#include <QString>
#include <QVariantList>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace vantrel {

/// Throws a failure with SQLite's message for its last call: `StoreBusy` if the database is locked,
/// otherwise `StatementInvalid`.
[[noreturn]] void FailAsSqlite(sqlite3* database);

/// One prepared statement of an open SQLite file. It must not outlive the connection.
class SqliteStatement final : public StoreRow
{
public:
    /// Fails like `FailAsSqlite`.
    SqliteStatement(sqlite3* database, const QString& sql);

    /// Binds values to the placeholders, in order: whole numbers, reals, texts, bytes and nulls.
    /// Fails like `FailAsSqlite`.
    void Bind(const QVariantList& values);
    /// Moves to the next row. Fails like `FailAsSqlite`.
    /// @return false if there is no further row
    bool Step();
    /// Resets the statement so that it can run again; until then it holds the read lock.
    void Finish();

    /// The value in the current row: a whole number, a real, a text, bytes or null.
    QVariant Value(int column) const override;

private:
    struct Deleter
    {
        void operator()(sqlite3_stmt* statement) const;
    };

    sqlite3* m_database;
    std::unique_ptr<sqlite3_stmt, Deleter> m_statement;
};

} // namespace vantrel
