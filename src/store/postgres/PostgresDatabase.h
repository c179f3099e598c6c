#pragma once

#include "base/Skip.h"
#include "store/StoreDatabase.h"
#include "store/postgres/PostgresConnection.h"
#include <QHash>
#include <QScopeGuard>

namespace vantrel {

/// One database of a PostgreSQL server. A transaction has the lock of the whole store, as one on a
/// SQLite file does, or shares it with others who change only rows of their own. A single statement
/// of `Change` or `Add` shares it; one that changes a row of a cursor has it. Whether
/// anything at all was committed is not worth asking, since each card commits; whether certain rows
/// were written is, see `ReadChanged`. Fails like `PostgresConnection`.
class PostgresDatabase final : public StoreDatabase
{
public:
    /// Connects. Fails with `InvalidCall` for an address that holds a password.
    explicit PostgresDatabase(const QString& address);
    ~PostgresDatabase() override;

    QVariant Execute(const QString& sql) override;
    void Select(const QString& sql, const QVariantList& values, const TakeRow& take) override;
    int Change(const QString& sql, const QVariantList& values = {}) override;
    qlonglong Add(const QString& sql, const QVariantList& values) override;

    std::vector<qlonglong> RunAll(const std::vector<StoreStep>& steps) override;

    QString DoubtsAboutCommits() override;
    using StoreDatabase::Begin;
    bool Begin(const StoreLock& lock) override;
    bool BeginWithNext(const StoreLock& lock) override;
    void BeginReading() override;
    void Commit() override;
    void Rollback() override;
    bool IsCommitInDoubt() const override { return m_isCommitInDoubt; }
    bool InTransaction() const override;
    bool IsReadOnly() const override { return false; }
    QString Location() const override { return m_connection.Address(); }
    void RequireTables() override;
    State Now() override;
    bool MayKeepRows() const override { return false; }
    QString Trouble() const override { return m_connection.Trouble(); }
    void Ask() override;
    void SetPatience(int milliseconds) override { m_connection.SetPatience(milliseconds); }

    std::vector<StoreColumn> ColumnsOf(const QString& table) override;
    void MakeTables(std::span<const StoreTable> tables) override;

    void ReadRows(const CursorShape& shape, const TakeCursorRow& take) override;
    std::vector<std::optional<CursorRows>>
    ReadChanged(const std::vector<KnownRows>& known) override;
    std::optional<qlonglong> InsertRow(const QString& table, const QStringList& columns,
                                       const QVariantList& values,
                                       const SelectStatement* unlessFound) override;
    void InsertRows(const QString& table, const QStringList& columns,
                    const std::vector<QVariantList>& rows) override;
    void ContinueKeys(const QString& table) override;
    std::optional<CursorRow> UpdateRow(const CursorShape& shape, qlonglong key,
                                       const QStringList& columns,
                                       const QVariantList& values) override;
    bool DeleteRow(const QString& table, qlonglong key) override;

    QString PassingOverLocked(const QString& alias) const override;
    QString WithoutIndex(const QString& column) const override;
    void OverwriteDeleted() override {}
    bool EmptyFiles(std::span<const StoreTable> tables) override;

private:
    using Step = PostgresConnection::Step;
    struct RowOfTable;

    PostgresResult Run(const QString& sql, const QVariantList& values);
    /// Runs a statement that changes rows, in a transaction of its own if none is open. Within one,
    /// a failure leaves what was written before.
    PostgresResult RunChange(const Step& step);
    void NoteFailure();
    /// Runs `act` in a transaction of its own if none is open.
    template <typename Act>
    auto Locked(const StoreLock& lock, Act&& act);
    /// What is read of the rows of a cursor, as `TakeRows` takes it.
    QByteArrayList ColumnsRead(const CursorShape& shape);
    /// A statement that reads the rows of a cursor.
    Step ReadStep(const CursorShape& shape);
    /// One that reads the keys and versions of the rows of several cursors, each with the cursor's
    /// index.
    Step VersionsStep(const std::vector<KnownRows>& known);
    /// A statement that adds a row, unless another one finds a row.
    Step InsertStep(const QString& table, const QStringList& columns, const QVariantList& values,
                    const SelectStatement* unlessFound);
    /// The name of a table's key.
    QByteArray KeyOf(const QString& table);

    PostgresConnection m_connection;
    QHash<QString, std::vector<StoreColumn>> m_columns;
    qlonglong m_failures = 0;
    bool m_isCommitInDoubt = false;
};

template <typename Act>
auto PostgresDatabase::Locked(const StoreLock& lock, Act&& act)
{
    if (!Begin(lock))
        return act();
    auto rollback = qScopeGuard([this] { Skip("roll back", [this] { Rollback(); }); });
    auto result = act();
    rollback.dismiss();
    Commit();
    return result;
}

} // namespace vantrel
