#pragma once

#include "store/StoreDatabase.h"
#include "store/postgres/PostgresConnection.h"
#include <QHash>

namespace vantrel {

/// One database of a PostgreSQL server. All stations that share it take turns in writing: a
/// transaction holds a lock of the whole store, as one on a SQLite file does. Rows are read anew
/// each time, since asking whether they have changed would cost as much. Fails like
/// `PostgresConnection`.
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

    QString DoubtsAboutCommits() override;
    bool Begin() override;
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
    std::optional<qlonglong> InsertRow(const QString& table, const QStringList& columns,
                                       const QVariantList& values,
                                       const SelectStatement* unlessFound) override;
    void InsertRows(const QString& table, const QStringList& columns,
                    const std::vector<QVariantList>& rows) override;
    void ContinueKeys(const QString& table) override;
    bool UpdateRow(const QString& table, qlonglong key, const QStringList& columns,
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
    /// Runs `act` in a transaction of its own if none is open.
    void NoteFailure();
    template <typename Act>
    auto Locked(Act&& act);
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

} // namespace vantrel
