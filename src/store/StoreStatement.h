#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantList>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace vantrel {

/// Fails with what the store says of its last call: `StoreBusy` for a lock, else
/// `StatementInvalid`.
[[noreturn]] void FailAsStore(sqlite3* database);

/// One prepared statement of an open SQLite file; it must not outlive it.
class StoreStatement
{
public:
    /// Fails like `FailAsStore`.
    StoreStatement(sqlite3* database, const QString& sql);

    /// Gives the placeholders their values, in order. Fails like `FailAsStore`.
    void Bind(const QVariantList& values);
    /// Goes on to the next row. Fails like `FailAsStore`.
    /// @return false behind the last, and always for a statement that gives none
    bool Step();
    /// Makes the statement ready to run again; until then it holds the store's read lock.
    void Finish();

    int ColumnCount() const;
    QString ColumnName(int column) const;
    /// The type the table declares for the column, empty for one it does not name.
    QByteArray DeclaredType(int column) const;
    /// The value in the row it stands on: a whole number, a real, a text, bytes, or a null.
    QVariant Value(int column) const;

private:
    struct Deleter
    {
        void operator()(sqlite3_stmt* statement) const;
    };

    sqlite3* m_database;
    std::unique_ptr<sqlite3_stmt, Deleter> m_statement;
};

} // namespace vantrel
