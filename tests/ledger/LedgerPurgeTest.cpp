#include "LedgerTest.h"
#include "ledger/LedgerTending.h"
#include "store/sqlite/SqliteDatabase.h"
#include "support/StoreFaults.h"
#include <QDateTime>
#include <QFile>
#include <thread>

namespace vantrel::test {

namespace {

constexpr qint64 Day = 24LL * 3600 * 1000;
constexpr auto AllStates = {LedgerState::Received, LedgerState::Printing, LedgerState::Printed,
                            LedgerState::Done,     LedgerState::Failed,   LedgerState::Doubtful,
                            LedgerState::Void};

class LedgerPurged : public LedgerTest
{
protected:
    LedgerEntry AgedEntry(double days, const QString& value = QStringLiteral("Ada"))
    {
        LedgerEntry entry = PrintedEntry({value});
        entry.Received = QDateTime::currentMSecsSinceEpoch() -
                         static_cast<qint64>(days * static_cast<double>(Day));
        return entry;
    }
    void AddPage(const char* hash)
    {
        Database().Change(QStringLiteral("INSERT INTO LedgerPages VALUES (?, '{}')"),
                          {QString(QLatin1StringView(hash))});
    }
    QStringList Pages()
    {
        QStringList pages;
        Database().Select(QStringLiteral("SELECT Hash FROM LedgerPages ORDER BY Hash"), {},
                          [&](const auto& row) { pages.append(row.Value(0).toString()); });
        return pages;
    }
    /// Whether the database or one of its logs holds these bytes.
    bool FilesHold(const QByteArray& bytes) const
    {
        for (const char* suffix : {"", "-wal", "-shm"}) {
            QFile file(Path + QLatin1StringView(suffix));
            if (file.open(QIODevice::ReadOnly) && file.readAll().contains(bytes))
                return true;
        }
        return false;
    }
};

TEST_F(LedgerPurged, EntriesOlderThanSoManyDaysAreRemovedWithAllThatBelongsToThem)
{
    const auto old = Add(AgedEntry(10.1));
    const auto young = Add(AgedEntry(9.9));
    EXPECT_EQ(PurgeEntries(Database(), 10), 1);
    EXPECT_FALSE(FindEntry(Database(), old));
    EXPECT_EQ(Entry(young).Values, QStringList(QStringLiteral("Ada")));
    EXPECT_EQ(RowsOf("LedgerCards"), 1);
    EXPECT_EQ(RowsOf("LedgerRecords"), 1);
}

TEST_F(LedgerPurged, WhatIsNotFinishedStays)
{
    for (const LedgerState state : AllStates)
        AddInState(state);
    EXPECT_EQ(PurgeEntries(Database(), {}), 5);
    EXPECT_EQ(Found({}), Numbers({2, 1}));
    EXPECT_EQ(RowsOf("LedgerRecords"), 2);
}

TEST_F(LedgerPurged, TheFirstEntryStaysAsLongAsItsReprintWaits)
{
    const auto first = AddPrinted("Ada");
    const auto reprint = AskReprint(Database(), first, ReprintMode::Once);
    EXPECT_EQ(PurgeEntries(Database(), {}), 0);
    VoidEntry(Database(), reprint);
    EXPECT_EQ(PurgeEntries(Database(), {}), 2);
}

TEST_F(LedgerPurged, MoreThanAreRemovedAtOnceAreAllRemoved)
{
    Database().Execute(QStringLiteral("BEGIN"));
    for (int i = 0; i < 2500; ++i)
        AddPrinted("Ada");
    Database().Execute(QStringLiteral("COMMIT"));
    EXPECT_EQ(PurgeEntries(Database(), {}), 2500);
    for (const char* table : {"LedgerEntries", "LedgerCards", "LedgerRecords"})
        EXPECT_EQ(RowsOf(table), 0) << table;
}

TEST_F(LedgerPurged, RecordsOfManyBytesAreRemovedToo)
{
    Database().Execute(QStringLiteral("BEGIN"));
    for (int i = 0; i < 3; ++i)
        Add(AgedEntry(1, QString(9 << 20, u'x')));
    Database().Execute(QStringLiteral("COMMIT"));
    EXPECT_EQ(PurgeEntries(Database(), {}), 3);
    EXPECT_LT(QFile(Path).size(), 1 << 20);
}

TEST_F(LedgerPurged, ANumberIsNotUsedTwice)
{
    const auto id = AddPrinted("Ada");
    PurgeEntries(Database(), {});
    EXPECT_EQ(AddPrinted("Grace"), id + 1);
}

TEST_F(LedgerPurged, PagesThatNoCardNeedsAreRemoved)
{
    for (const char* hash : {"both", "old", "young"})
        AddPage(hash);
    LedgerEntry old = AgedEntry(2);
    old.Cards.push_back(old.Cards.front());
    old.Cards[0].PageHash = QStringLiteral("old");
    old.Cards[1].PageHash = QStringLiteral("both");
    Add(old);
    LedgerEntry young = AgedEntry(0.5);
    young.Cards.push_back(young.Cards.front());
    young.Cards[0].PageHash = QStringLiteral("young");
    young.Cards[1].PageHash = QStringLiteral("both");
    Add(young);
    EXPECT_EQ(PurgeEntries(Database(), 1), 1);
    EXPECT_EQ(Pages(), QStringList({QStringLiteral("both"), QStringLiteral("young")}));
}

/// Writes as a station does: without overwriting what it deletes, with rows that grow and move.
TEST_F(LedgerPurged, NothingOfWhatWasRemovedIsLeftInTheFiles)
{
    const QString kept = QStringLiteral("KeptKeptKept");
    const QString secret = QStringLiteral("SecretOfAda");
    Database().Execute(QStringLiteral("PRAGMA secure_delete = OFF"));
    for (int i = 0; i < 300; ++i) {
        LedgerEntry entry = AgedEntry(i % 3 == 0 ? 1 : 9, i % 3 == 0 ? kept : secret);
        entry.Values.append(QString((i * 37) % 900, u'x'));
        entry.Raw = entry.Values.join(u'+').toUtf8();
        const auto id = Add(entry);
        Database().Change(QStringLiteral("UPDATE LedgerEntries SET SearchText = SearchText || "
                                         "SearchText WHERE ID = ?"),
                          {id / 2 + 1});
        if (i % 5 == 0)
            Database().Change(QStringLiteral("DELETE FROM LedgerRecords WHERE EntryID = ?"),
                              {id / 2});
    }
    SqliteDatabase station(Path, SqliteDatabase::OpenMode::Existing);
    station.Execute(QStringLiteral("SELECT COUNT(*) FROM LedgerEntries"));
    ASSERT_TRUE(FilesHold(secret.toUtf8()));
    EXPECT_EQ(PurgeEntries(Database(), 5), 200);
    EXPECT_FALSE(FilesHold(secret.toUtf8()));
    EXPECT_FALSE(FilesHold(secret.toLower().toUtf8()));
    EXPECT_TRUE(FilesHold(kept.toUtf8()));
    EXPECT_EQ(RowsOf("LedgerEntries"), 100);
    // The station goes on as before.
    AddLedgerEntry(station, PrintedEntry({QStringLiteral("Grace")}));
    EXPECT_EQ(RowsOf("LedgerEntries"), 101);
}

TEST_F(LedgerPurged, AReaderThatStaysIsReported)
{
    AddPrinted("Ada");
    SqliteDatabase reader(Path, SqliteDatabase::OpenMode::Existing);
    reader.Execute(QStringLiteral("BEGIN"));
    reader.Execute(QStringLiteral("SELECT COUNT(*) FROM LedgerEntries"));
    Database().Execute(QStringLiteral("PRAGMA busy_timeout = 1"));
    EXPECT_EQ(FailureOf([&] { PurgeEntries(Database(), {}); }), FailureNumber::StoreBusy);
    EXPECT_EQ(Found({}), Numbers());
    reader.Execute(QStringLiteral("COMMIT"));
    EXPECT_EQ(PurgeEntries(Database(), {}), 0);
}

TEST_F(LedgerPurged, AStationWritesWhileEntriesAreRemoved)
{
    Database().Execute(QStringLiteral("BEGIN"));
    for (int i = 0; i < 5000; ++i)
        Add(AgedEntry(9));
    Database().Execute(QStringLiteral("COMMIT"));
    std::atomic<bool> ended = false;
    int written = 0;
    std::thread station([&] {
        const auto store = OpenStoreDatabase(Path);
        do {
            AddLedgerEntry(*store, AgedEntry(0));
            ++written;
        } while (!ended);
    });
    qlonglong removed = 0;
    const int failure = FailureOf([&] { removed = PurgeEntries(Database(), 5); });
    ended = true;
    station.join();
    EXPECT_EQ(failure, 0);
    EXPECT_EQ(removed, 5000);
    EXPECT_EQ(RowsOf("LedgerEntries"), written);
}

TEST_F(LedgerPurged, AStationRemovesOldEntriesAFewAtATime)
{
    for (int i = 0; i < 5; ++i)
        Add(AgedEntry(91));
    const auto young = Add(AgedEntry(89));
    EXPECT_EQ(RemoveOldEntries(Database(), 0, 100), 0);
    EXPECT_EQ(RemoveOldEntries(Database(), 90, 2), 2);
    EXPECT_EQ(Found({}), Numbers({young, 5, 4, 3}));
    EXPECT_EQ(RemoveOldEntries(Database(), 90, 100), 3);
    EXPECT_EQ(Found({}), Numbers({young}));
    EXPECT_EQ(RemoveOldEntries(Database(), 90, 100), 0);
}

} // namespace

} // namespace vantrel::test
