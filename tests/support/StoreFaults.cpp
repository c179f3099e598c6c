#include "support/StoreFaults.h"
#include "platform/StoreDatabase.h"
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtEndian>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

/// SQLite's own bound, well above what a test fills.
constexpr int AllTheRoom = 1000000;

constexpr char InteriorTablePage = 5;
constexpr int CellCountAt = 3;
constexpr int CellPointersAt = 12;

template <typename Number>
Number Read(const QByteArray& page, qsizetype at)
{
    return qFromBigEndian<Number>(page.constData() + at);
}

/// A child in the middle of an interior page.
qint64 MiddleChild(const QByteArray& page)
{
    EXPECT_EQ(page.at(0), InteriorTablePage) << "the table's rows fit into one page";
    const int cells = Read<quint16>(page, CellCountAt);
    return Read<quint32>(page, Read<quint16>(page, CellPointersAt + 2 * (cells / 2)));
}

int RunOnStore(const QString& connection, const QString& sql)
{
    QSqlQuery query(QSqlDatabase::database(connection));
    EXPECT_TRUE(query.exec(sql));
    EXPECT_TRUE(query.next());
    return query.value(0).toInt();
}

} // namespace

void DamageRows(const QString& path, const QString& table)
{
    qint64 pageSize = 0;
    qint64 root = 0;
    {
        StoreDatabase database;
        database.Open(path, StoreDatabase::OpenMode::Existing);
        database.Execute(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        pageSize = database.Execute(QStringLiteral("PRAGMA page_size")).toLongLong();
        root = database
                   .Execute(QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = '%1'")
                                .arg(table))
                   .toLongLong();
    }
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.seek((root - 1) * pageSize);
    const qint64 child = MiddleChild(file.read(pageSize));
    file.seek((child - 1) * pageSize);
    ASSERT_EQ(file.write(QByteArray(pageSize, '\xFF')), pageSize);
}

void LeaveRoom(int pages)
{
    const QStringList connections = QSqlDatabase::connectionNames();
    for (const QString& connection : connections) {
        const int used = RunOnStore(connection, QStringLiteral("PRAGMA page_count"));
        RunOnStore(connection, QStringLiteral("PRAGMA max_page_count = %1").arg(used + pages));
    }
}

void GiveRoomBack()
{
    const QStringList connections = QSqlDatabase::connectionNames();
    for (const QString& connection : connections)
        RunOnStore(connection, QStringLiteral("PRAGMA max_page_count = %1").arg(AllTheRoom));
}

bool IsLocked(const QString& path)
{
    const QString name = QStringLiteral("trying the lock");
    bool locked = false;
    {
        QSqlDatabase file = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        file.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
        file.setDatabaseName(path);
        EXPECT_TRUE(file.open());
        QSqlQuery query(file);
        locked = !query.exec(QStringLiteral("BEGIN IMMEDIATE"));
        file.close();
    }
    QSqlDatabase::removeDatabase(name);
    return locked;
}

} // namespace vantrel::test
