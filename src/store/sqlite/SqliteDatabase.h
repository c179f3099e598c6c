#pragma once

#include "store/StoreDatabase.h"
#include "store/sqlite/SqliteStatement.h"
#include <QCache>

namespace vantrel {

/// One SQLite file and its prepared statements. A station loads and saves the same pages for every
/// card, so the most recently used prepared statements are kept. All operations fail like
/// `FailAsSqlite`.
class SqliteDatabase final : public StoreDatabase
{
public:
    enum class OpenMode { Existing, Create };

    /// Opens the file with durable commits and a lock timeout of five seconds. `Existing` never
    /// creates a file.
    SqliteDatabase(const QString& path, OpenMode mode);
    ~SqliteDatabase() override;

    QString Location() const override { return m_path; }
    void RequireTables() override;
    QVariant Execute(const QString& sql) override;
    void Select(const QString& sql, const QVariantList& values, const TakeRow& take) override;
    int Change(const QString& sql, const QVariantList& values = {}) override;
    qlonglong Add(const QString& sql, const QVariantList& values) override;

    using StoreDatabase::Begin;
    bool Begin(const StoreLock& lock) override;
    void BeginReading() override;
    void Commit() override;
    void Rollback() override;
    bool InTransaction() const override;
    bool IsReadOnly() const override;
    State Now() override;
    bool MayKeepRows() const override { return true; }

    std::vector<StoreColumn> ColumnsOf(const QString& table) override;
    void MakeTables(std::span<const StoreTable> tables) override;

    void ReadRows(const CursorShape& shape, const TakeCursorRow& take) override;
    std::optional<qlonglong> InsertRow(const QString& table, const QStringList& columns,
                                       const QVariantList& values,
                                       const SelectStatement* unlessFound) override;
    void InsertRows(const QString& table, const QStringList& columns,
                    const std::vector<QVariantList>& rows) override;
    void ContinueKeys(const QString& /*table*/) override {}
    std::optional<CursorRow> UpdateRow(const CursorShape& shape, qlonglong key,
                                       const QStringList& columns,
                                       const QVariantList& values) override;
    bool DeleteRow(const QString& table, qlonglong key) override;

    QString PassingOverLocked(const QString& /*alias*/) const override { return {}; }
    QString WithoutIndex(const QString& column) const override;
    void OverwriteDeleted() override;
    bool EmptyFiles(std::span<const StoreTable> tables) override;

private:
    struct Closer
    {
        void operator()(sqlite3* database) const;
    };
    /// Resets a statement when its scope ends, even by an exception, and counts failures.
    class Running;

    std::shared_ptr<SqliteStatement> Prepared(const QString& sql);

    QString m_path;
    std::unique_ptr<sqlite3, Closer> m_database;
    QCache<QString, std::shared_ptr<SqliteStatement>> m_statements;
    qlonglong m_failures = 0;
};

} // namespace vantrel
