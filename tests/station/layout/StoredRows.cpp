#include "StoredRows.h"
#include "store/Schema.h"
#include "support/PrivatePostgres.h"
#include "support/TestStore.h"
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

QString LocationOf(const vantrel::Session& session)
{
    return StoreAt(session.PathInFolder(QLatin1StringView(LayoutDatabaseName)));
}

template <typename Use>
void WithFile(const vantrel::Session& session, Use&& use)
{
    const QString name = QStringLiteral("looking from outside");
    {
        QSqlDatabase file = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        file.setDatabaseName(LocationOf(session));
        EXPECT_TRUE(file.open());
        use(file);
        file.close();
    }
    QSqlDatabase::removeDatabase(name);
}

} // namespace

QList<StoredRow> StoredRows(const vantrel::Session& session, const QString& statement)
{
    QList<StoredRow> rows;
    if (StoresAreOnServer()) {
        for (StoredRow& row : PrivatePostgres::Rows(LocationOf(session), statement)) {
            row.remove(QStringLiteral("RowKey"));
            rows.append(row);
        }
        return rows;
    }
    WithFile(session, [&](QSqlDatabase& file) {
        QSqlQuery query(file);
        EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
        while (query.next()) {
            StoredRow row;
            const QSqlRecord record = query.record();
            for (int column = 0; column < record.count(); ++column) {
                if (record.fieldName(column) != QStringLiteral("RowKey"))
                    row.insert(record.fieldName(column), query.value(column));
            }
            rows.append(row);
        }
    });
    return rows;
}

QList<StoredRow> StoredPage(const vantrel::Session& session, const QString& layoutName, int page)
{
    return StoredRows(session, QStringLiteral("SELECT * FROM Controls WHERE LayoutName = '%1' AND "
                                              "Page = %2 ORDER BY RowKey")
                                   .arg(layoutName)
                                   .arg(page));
}

void Execute(const vantrel::Session& session, const QString& statement)
{
    if (StoresAreOnServer()) {
        PrivatePostgres::Run(LocationOf(session), statement);
        return;
    }
    WithFile(session, [&](QSqlDatabase& file) {
        QSqlQuery query(file);
        EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
    });
}

} // namespace vantrel::test
