#include "LedgerTest.h"
#include "ledger/RecordLedger.h"
#include <QThread>
#include <atomic>
#include <thread>

// Two stations that write one ledger at the same time.

namespace vantrel::test {

namespace {

class LedgersTogether : public LedgerTest
{
protected:
    LedgersTogether()
    {
        OtherStore.Open(Path);
        Ledger.Open(Store, {.On = true, .KeepValues = true, .HashKey = {}});
        Other.Open(OtherStore, {.On = true, .KeepValues = true, .HashKey = {}});
    }

    /// A record with a card of each of these pages.
    static RecordRunPtr BeginRecord(RecordLedger& ledger, const QString& value,
                                    const QStringList& pages)
    {
        LedgerEntry entry;
        entry.Source = QStringLiteral("192.0.2.7:5000");
        entry.Layout = QStringLiteral("Badge");
        entry.Raw = value.toUtf8();
        RecordRunPtr run = ledger.Begin(entry);
        ledger.SetValues(
            *run, 1, [&](int) { return value; }, QStringLiteral("{}"));
        for (const QString& page : pages) {
            LedgerCard card;
            card.Layout = entry.Layout;
            card.PageHash = page;
            ledger.BeginCard(*run, card, QStringLiteral("description of ") + page);
        }
        return run;
    }
    QString PagesKept()
    {
        QStringList pages;
        Database().Select(QStringLiteral("SELECT Hash FROM LedgerPages ORDER BY Hash"), {},
                          [&](const StoreRow& row) { pages.append(row.Value(0).toString()); });
        return pages.join(u',');
    }

    RecordLedger Ledger;
    Connection OtherStore;
    RecordLedger Other;
};

} // namespace

// In a file the second one waits until the first has committed.
TEST_F(LedgersTogether, EntriesOfBothAreKeptWithWhatBelongsToThem)
{
    if (!Database().MayKeepRows()) {
        const RecordRunPtr first =
            BeginRecord(Ledger, QStringLiteral("Ada"), {QStringLiteral("a")});
        Store.BeginTrans(Ledger.LockToWrite());
        Ledger.Write();
        const RecordRunPtr second =
            BeginRecord(Other, QStringLiteral("Grace"), {QStringLiteral("b")});
        Other.Flush();
        Store.CommitTrans();
        Ledger.Committed();
        EXPECT_LT(first->Entry.Id, second->Entry.Id);
    } else {
        BeginRecord(Ledger, QStringLiteral("Ada"), {QStringLiteral("a")});
        Ledger.Flush();
        BeginRecord(Other, QStringLiteral("Grace"), {QStringLiteral("b")});
        Other.Flush();
    }
    const Numbers ids = Found({});
    ASSERT_EQ(ids.size(), 2U);
    EXPECT_EQ(Entry(ids[1]).Values, QStringList(QStringLiteral("Ada")));
    EXPECT_EQ(Entry(ids[1]).Cards.at(0).PageHash, QStringLiteral("a"));
    EXPECT_EQ(Entry(ids[0]).Values, QStringList(QStringLiteral("Grace")));
    EXPECT_EQ(Entry(ids[0]).Cards.at(0).PageHash, QStringLiteral("b"));
    EXPECT_EQ(PagesKept(), QStringLiteral("a,b"));
}

TEST_F(LedgersTogether, APageThatBothPrintForTheFirstTimeIsDescribedOnce)
{
    const RecordRunPtr first =
        BeginRecord(Ledger, QStringLiteral("Ada"), {QStringLiteral("b"), QStringLiteral("a")});
    const RecordRunPtr second =
        BeginRecord(Other, QStringLiteral("Grace"), {QStringLiteral("a"), QStringLiteral("b")});
    Store.BeginTrans(Ledger.LockToWrite());
    Ledger.Write();
    std::atomic<bool> isWritten = false;
    std::thread other([&] {
        Other.Flush();
        isWritten = true;
    });
    QThread::msleep(200);
    // It must know whether the first one's pages are there.
    EXPECT_FALSE(isWritten);
    Store.CommitTrans();
    Ledger.Committed();
    other.join();
    EXPECT_EQ(PagesKept(), QStringLiteral("a,b"));
    EXPECT_EQ(Entry(second->Entry.Id).Cards.size(), 2U);
    EXPECT_EQ(Entry(first->Entry.Id).Cards.size(), 2U);
}

TEST_F(LedgersTogether, WhoDoesNotKnowWhetherTheTablesAreThereLocksTheStore)
{
    EXPECT_FALSE(Ledger.LockToWrite().IsOfStore());
    RecordLedger unopened;
    EXPECT_TRUE(unopened.LockToWrite().IsOfStore());
}

TEST_F(LedgersTogether, ManyRecordsOfBothAtOnceAreAllKept)
{
    constexpr int Records = 50;
    const auto write = [](RecordLedger& ledger, const QString& name) {
        for (int i = 0; i < Records; ++i) {
            const RecordRunPtr run =
                BeginRecord(ledger, name + QString::number(i), {QStringLiteral("page %1").arg(i)});
            ledger.Flush();
            ledger.EndCard(*run, 0, {.State = LedgerState::Printed});
            ledger.EndRoad(*run);
        }
        ledger.Flush();
    };
    std::thread other([&] { write(Other, QStringLiteral("Grace")); });
    write(Ledger, QStringLiteral("Ada"));
    other.join();
    EXPECT_EQ(
        Found({.State = LedgerState::Printed, .Text = {}, .Since = {}, .Until = {}, .Before = {}})
            .size(),
        2U * Records);
    EXPECT_EQ(FoundByText("grace").size(), std::size_t{Records});
    EXPECT_EQ(RowsOf("LedgerCards"), 2 * Records);
    EXPECT_EQ(RowsOf("LedgerRecords"), 2 * Records);
    EXPECT_EQ(RowsOf("LedgerPages"), Records);
}

} // namespace vantrel::test
