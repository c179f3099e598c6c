#include "support/StoreFaults.h"
#include "store/sqlite/SqliteDatabase.h"
#include "support/PrivatePostgres.h"
#include "support/TestStore.h"
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtEndian>
#include <csignal>
#include <gtest/gtest.h>
#include <set>
#include <sqlite3.h>

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

/// A child page named in the middle of an interior page.
qint64 MiddleChild(const QByteArray& page)
{
    EXPECT_EQ(page.at(0), InteriorTablePage) << "the table's rows fit into one page";
    const int cells = Read<quint16>(page, CellCountAt);
    return Read<quint32>(page, Read<quint16>(page, CellPointersAt + 2 * (cells / 2)));
}

/// The stores this process has open at the moment.
std::set<sqlite3*>& OpenStores()
{
    static std::set<sqlite3*> stores;
    return stores;
}

/// An SQL function that nobody calls: SQLite reports the close of the store by destroying it.
int NoteStore(sqlite3* store, const char** /*error*/, const sqlite3_api_routines* /*routines*/)
{
    OpenStores().insert(store);
    return sqlite3_create_function_v2(
        store, "vantrel_is_open", 0, SQLITE_UTF8, store,
        [](sqlite3_context* context, int, sqlite3_value**) { sqlite3_result_int(context, 1); },
        nullptr, nullptr, [](void* closed) { OpenStores().erase(static_cast<sqlite3*>(closed)); });
}

const int notesStores = [] {
    OpenStores();
    return sqlite3_auto_extension(reinterpret_cast<void (*)()>(&NoteStore));
}();

/// @return the first value of its result, 0 where it has none
int RunOnStore(sqlite3* store, const QString& sql)
{
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(store, sql.toUtf8().constData(), -1, &statement, nullptr),
              SQLITE_OK);
    const int step = sqlite3_step(statement);
    EXPECT_TRUE(step == SQLITE_ROW || step == SQLITE_DONE);
    const int value = sqlite3_column_int(statement, 0);
    sqlite3_finalize(statement);
    return value;
}

} // namespace

void DamageRows(const QString& path, const QString& table)
{
    qint64 pageSize = 0;
    qint64 root = 0;
    {
        SqliteDatabase database(path, SqliteDatabase::OpenMode::Existing);
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
    EXPECT_EQ(notesStores, SQLITE_OK);
    EXPECT_FALSE(OpenStores().empty());
    for (sqlite3* store : OpenStores()) {
        const int used = RunOnStore(store, QStringLiteral("PRAGMA page_count"));
        RunOnStore(store, QStringLiteral("PRAGMA max_page_count = %1").arg(used + pages));
    }
}

void GiveRoomBack()
{
    for (sqlite3* store : OpenStores())
        RunOnStore(store, QStringLiteral("PRAGMA max_page_count = %1").arg(AllTheRoom));
}

void LimitCache(int pages)
{
    for (sqlite3* store : OpenStores())
        RunOnStore(store, QStringLiteral("PRAGMA cache_size = %1").arg(pages));
}

void EmptyLog(const QString& path)
{
    SqliteDatabase database(path, SqliteDatabase::OpenMode::Existing);
    EXPECT_EQ(database.Execute(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")).toInt(), 0);
}

FilesMayNotGrow::FilesMayNotGrow(qint64 bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &m_before), 0);
    const rlimit limit{static_cast<rlim_t>(bytes), m_before.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
}

FilesMayNotGrow::~FilesMayNotGrow()
{
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &m_before), 0);
}

bool IsLocked(const QString& path)
{
    if (StoresAreOnServer())
        return PrivatePostgres::Run(path, QStringLiteral("SELECT pg_try_advisory_xact_lock("
                                                         "hashtextextended('vantrel ' || "
                                                         "current_schema(), 0))")) ==
               QStringLiteral("f");
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
