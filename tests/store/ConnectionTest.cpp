#include "StoreTest.h"
#include <QDir>
#include <QFile>
#include <atomic>
#include <chrono>
#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace vantrel::test {

namespace {
using Transactions = StoreTest;

const QString Card = QStringLiteral("Card");
} // namespace

TEST(Connection, AMissingFileFailsAndIsNotMade)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Vantrel.dat"));
    Connection store;
    EXPECT_EQ(FailureOf([&] { store.Open(path); }), FailureNumber::FileNotFound);
    EXPECT_FALSE(store.IsOpen());
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(FailureOf([&] { store.Open(folder.path()); }), FailureNumber::FileNotFound);
}

TEST(Connection, AFileThatIsNoLayoutDatabaseFails)
{
    const QTemporaryDir folder;
    for (const QByteArray& contents :
         {QByteArray(), QByteArray("[Session 1]\r\nPort=10001\r\n").repeated(100)}) {
        const QString path = folder.filePath(QStringLiteral("Vantrel.dat"));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
        file.close();
        Connection store;
        EXPECT_EQ(FailureOf([&] { store.Open(path); }), FailureNumber::StatementInvalid);
        EXPECT_FALSE(store.IsOpen());
    }
}

TEST(Connection, AClosedConnectionFails)
{
    Connection store;
    EXPECT_EQ(FailureOf([&] { store.BeginTrans(); }), FailureNumber::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { store.CommitTrans(); }), FailureNumber::ObjectClosed);
    Recordset rows(store);
    EXPECT_EQ(FailureOf([&] { rows.Open(QStringLiteral("SELECT * FROM [Controls]")); }),
              FailureNumber::ObjectClosed);
}

TEST(Connection, AFolderNameMayContainAnyCharacter)
{
    const QTemporaryDir folder;
    const QString inside = folder.filePath(QStringLiteral("a b%20#?&é 'x'"));
    ASSERT_TRUE(QDir().mkpath(inside));
    const QString path = inside + QStringLiteral("/Vantrel.dat");
    CreateLayoutDatabase(path);
    Connection store;
    store.Open(path);
    EXPECT_TRUE(store.IsOpen());
    EXPECT_TRUE(QFile::exists(path));
    store.Close();
    EXPECT_FALSE(store.IsOpen());
    EXPECT_EQ(QDir(inside).entryList(QDir::Files | QDir::Hidden),
              QStringList(QStringLiteral("Vantrel.dat")));
}

TEST_F(Transactions, RowsOfATransactionAreSeenByOthersAfterTheCommit)
{
    Connection other;
    other.Open(Path);
    Store.BeginTrans();
    AddControl(Store, Card, 1, QStringLiteral("a"));
    EXPECT_EQ(Texts().size(), 1);
    EXPECT_TRUE(Column(other, QStringLiteral("SELECT * FROM [Controls]"), QStringLiteral("Page"))
                    .isEmpty());
    Store.CommitTrans();
    EXPECT_EQ(
        Column(other, QStringLiteral("SELECT * FROM [Controls]"), QStringLiteral("Page")).size(),
        1);
}

TEST_F(Transactions, AreNested)
{
    Connection other;
    other.Open(Path);
    for (int depth = 1; depth <= 3; ++depth) {
        Store.BeginTrans();
        EXPECT_EQ(Store.TransactionDepth(), depth);
        AddControl(Store, Card, depth, QStringLiteral("text"));
    }
    for (int depth = 2; depth >= 0; --depth) {
        EXPECT_TRUE(
            Column(other, QStringLiteral("SELECT * FROM [Controls]"), QStringLiteral("Page"))
                .isEmpty());
        Store.CommitTrans();
        EXPECT_EQ(Store.TransactionDepth(), depth);
    }
    EXPECT_EQ(Column(other, QStringLiteral("SELECT * FROM [Controls]"), QStringLiteral("Page")),
              QStringList({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
}

TEST_F(Transactions, ACommitWithoutATransactionFails)
{
    EXPECT_EQ(FailureOf([&] { Store.CommitTrans(); }), FailureNumber::InvalidCall);
}

TEST_F(Transactions, WhatWasNotCommittedIsGoneAfterAClose)
{
    AddControl(Store, Card, 1, QStringLiteral("kept"));
    Store.BeginTrans();
    AddControl(Store, Card, 1, QStringLiteral("lost"));
    Store.Close();
    Store.Open(Path);
    EXPECT_EQ(Store.TransactionDepth(), 0);
    EXPECT_EQ(Texts(), QStringList(QStringLiteral("kept")));
}

TEST_F(Transactions, AProcessThatDiesInOneLeavesThePageUnchanged)
{
    AddControl(Store, Card, 1, QStringLiteral("first"));
    AddControl(Store, Card, 1, QStringLiteral("second"));
    // A lock on the file must not be shared with the child.
    Store.Close();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        Connection store;
        store.Open(Path);
        store.BeginTrans();
        Recordset rows(store);
        for (rows.Open(QStringLiteral("SELECT * FROM [Controls]"), CursorLock::Optimistic);
             !rows.IsEof(); rows.MoveNext())
            rows.Delete();
        AddControl(store, Card, 1, QStringLiteral("half"));
        kill(getpid(), SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    Store.Open(Path);
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
    AddControl(Store, Card, 1, QStringLiteral("third"));
    EXPECT_EQ(Texts().size(), 3);
}

TEST_F(Transactions, AWaitingWriterGetsThrough)
{
    Store.BeginTrans();
    AddControl(Store, Card, 1, QStringLiteral("first"));
    std::atomic<bool> waiting = false;
    int failure = -1;
    std::thread writer([&] {
        Connection other;
        other.Open(Path);
        waiting = true;
        failure = FailureOf([&] {
            other.BeginTrans();
            AddControl(other, Card, 1, QStringLiteral("second"));
            other.CommitTrans();
        });
    });
    while (!waiting)
        std::this_thread::yield();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    Store.CommitTrans();
    writer.join();
    EXPECT_EQ(failure, 0);
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

TEST_F(Transactions, ALockThatStaysFailsAsBusy)
{
    Connection other;
    other.Open(Path);
    Store.BeginTrans();
    EXPECT_EQ(FailureOf([&] { other.BeginTrans(); }), FailureNumber::StoreBusy);
    EXPECT_EQ(other.TransactionDepth(), 0);
    Store.CommitTrans();
    EXPECT_NO_THROW(other.BeginTrans());
}

TEST_F(Transactions, SessionsThatSaveAtOnceLoseNothing)
{
    constexpr int Sessions = 4;
    constexpr int Saves = 40;
    std::atomic<int> failures = 0;
    std::vector<std::thread> sessions;
    for (int number = 1; number <= Sessions; ++number)
        sessions.emplace_back([&, number] {
            Connection store;
            store.Open(Path);
            for (int i = 0; i < Saves; ++i)
                failures += FailureOf([&] {
                                store.BeginTrans();
                                AddControl(store, Card, number, QString::number(i));
                                store.CommitTrans();
                            }) != 0
                                ? 1
                                : 0;
        });
    for (std::thread& session : sessions)
        session.join();
    EXPECT_EQ(failures, 0);
    for (int number = 1; number <= Sessions; ++number)
        EXPECT_EQ(Column(Store,
                         QStringLiteral("SELECT * FROM [Controls] WHERE [Page] = ") +
                             QString::number(number),
                         QStringLiteral("C_Value"))
                      .size(),
                  Saves);
}

} // namespace vantrel::test
