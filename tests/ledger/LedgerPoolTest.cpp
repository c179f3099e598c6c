#include "ledger/LedgerPool.h"
#include "LedgerTest.h"
#include "ledger/LedgerStations.h"
#include "ledger/LedgerTending.h"
#include "ledger/RecordLedger.h"
#include <QDateTime>
#include <atomic>
#include <thread>

// Entries that any station of a pool may carry out.

namespace vantrel::test {

namespace {

const QString Pool = QStringLiteral("cards");

class LedgerPool : public LedgerTest
{
protected:
    LedgerEntry Waiting(const QString& value, const QString& layout = QStringLiteral("Badge")) const
    {
        LedgerEntry entry = PrintedEntry({value});
        entry.State = LedgerState::Received;
        entry.Session = NoSession;
        entry.Layout = layout;
        entry.Cards.clear();
        return entry;
    }
    qlonglong AddWaiting(const QString& value, const QString& pool = Pool,
                         const QString& layout = QStringLiteral("Badge"))
    {
        const qlonglong id = Add(Waiting(value, layout));
        Database().Change(QStringLiteral("INSERT INTO LedgerPools (EntryID, Pool) VALUES (?, ?)"),
                          {id, pool});
        return id;
    }
    std::optional<qlonglong> Claim(int session, const QStringList& printers = {})
    {
        return ClaimEntry(Database(), {Pool, session, printers}, {});
    }
    void AddPage(const QString& layout, int page, const QString& printer)
    {
        Database().Change(QStringLiteral("INSERT INTO LayoutParams (LayoutName, PageIndex, "
                                         "PrinterDevice) VALUES (?, ?, ?)"),
                          {layout, page, printer});
    }
    void NoteSeen(int session, qint64 seen, bool ended = false)
    {
        NoteStation(Database(), {QStringLiteral("a"), session, 0, seen, ended, {}, {}});
    }
    void Begin(qlonglong id)
    {
        Database().Change(
            QStringLiteral("UPDATE LedgerEntries SET State = 'printing' WHERE ID = ?"), {id});
        Database().Change(QStringLiteral("INSERT INTO LedgerCards (EntryID, State, Page, Copy, "
                                         "Changed, Layout, Printer, Numbers, PageHash, File, "
                                         "Reason) VALUES (?, 'printing', 1, 1, 0, 'Badge', '', "
                                         "'[]', '', '', '')"),
                          {id});
    }

    static constexpr qint64 Now = 1'000'000;
};

TEST_F(LedgerPool, GivesEachEntryToOneSessionOldestFirst)
{
    const auto first = AddWaiting(QStringLiteral("Ada"));
    const auto second = AddWaiting(QStringLiteral("Bob"));
    EXPECT_EQ(Claim(4), first);
    EXPECT_EQ(Entry(first).Session, 4);
    EXPECT_EQ(Entry(first).State, LedgerState::Received);
    EXPECT_EQ(Claim(5), second);
    EXPECT_EQ(Claim(6), std::nullopt);
}

TEST_F(LedgerPool, GivesAMemberWhatItHasClaimedAndNotBegun)
{
    const auto entry = AddWaiting(QStringLiteral("Ada"));
    EXPECT_EQ(Claim(4), entry);
    EXPECT_EQ(Claim(4), entry);
    EXPECT_EQ(ClaimEntry(Database(), {Pool, 4, {}}, {entry}), std::nullopt);
}

TEST_F(LedgerPool, GivesNothingOfAnotherPoolOrSession)
{
    AddWaiting(QStringLiteral("Ada"), QStringLiteral("other"));
    AddInState(LedgerState::Received);
    EXPECT_EQ(Claim(4), std::nullopt);
}

TEST_F(LedgerPool, GivesNoEntryThatWasDeclaredVoid)
{
    const auto entry = AddWaiting(QStringLiteral("Ada"));
    VoidEntry(Database(), entry);
    EXPECT_EQ(Claim(4), std::nullopt);
}

TEST_F(LedgerPool, GivesAnEntryOnlyToAMemberThatHasThePrintersOfAllPagesOfItsLayout)
{
    const QString layout = QStringLiteral("Two sides");
    AddPage(layout, 1, QStringLiteral("front"));
    AddPage(layout, 2, QStringLiteral("back"));
    AddPage(QStringLiteral("Plain"), 1, QString());
    const auto sides = AddWaiting(QStringLiteral("Ada"), Pool, layout);
    const auto plain = AddWaiting(QStringLiteral("Bob"), Pool, QStringLiteral("Plain"));
    EXPECT_EQ(Claim(4, {QStringLiteral("front")}), plain);
    EXPECT_EQ(Claim(5, {QStringLiteral("back")}), std::nullopt);
    EXPECT_EQ(Claim(6, {QStringLiteral("front"), QStringLiteral("back")}), sides);
}

TEST_F(LedgerPool, GivesAReprintOnlyToAMemberThatHasThePrinterOfTheFirstPrint)
{
    const auto first = AddWaiting(QStringLiteral("Ada"));
    Claim(4);
    Begin(first);
    Database().Change(QStringLiteral("UPDATE LedgerCards SET State = 'failed', Printer = 'front'"));
    Database().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'failed'"));
    const auto again = AskReprint(Database(), first, ReprintMode::Once);
    EXPECT_EQ(Entry(again).Session, NoSession);
    EXPECT_EQ(Claim(5, {QStringLiteral("back")}), std::nullopt);
    EXPECT_EQ(Claim(6, {QStringLiteral("back"), QStringLiteral("front")}), again);
}

TEST_F(LedgerPool, OfARemovedEntryNothingStays)
{
    const auto entry = AddWaiting(QStringLiteral("Ada"));
    StoreDatabase& database = Database();
    ASSERT_TRUE(database.Begin());
    RemoveEntries(database, {entry});
    database.Commit();
    EXPECT_EQ(RowsOf("LedgerPools"), 0);
}

TEST_F(LedgerPool, TakesBackWhatASilentOrEndedStationHadNotBegun)
{
    const auto ofSilent = AddWaiting(QStringLiteral("Ada"));
    const auto ofEnded = AddWaiting(QStringLiteral("Bob"));
    const auto ofRunning = AddWaiting(QStringLiteral("Cid"));
    for (const int session : {4, 5, 6})
        Claim(session);
    NoteSeen(4, Now - SilentMilliseconds);
    NoteSeen(5, Now, true);
    NoteSeen(6, Now - SilentMilliseconds + 1);
    EXPECT_EQ(ReleaseAbandoned(Database(), Pool, Now), 2);
    EXPECT_EQ(ReleaseAbandoned(Database(), Pool, Now), 0);
    EXPECT_EQ(Entry(ofRunning).Session, 6);
    EXPECT_EQ(Claim(7), ofSilent);
    EXPECT_EQ(Claim(7), ofSilent);
    EXPECT_EQ(ClaimEntry(Database(), {Pool, 7, {}}, {ofSilent}), ofEnded);
}

TEST_F(LedgerPool, MakesDoubtfulWhatASilentStationHadBegun)
{
    const auto begun = AddWaiting(QStringLiteral("Ada"));
    Claim(4);
    Begin(begun);
    // An entry that was left to no pool is its own session's to judge.
    const auto own = AddInState(LedgerState::Printing);
    EXPECT_EQ(ReleaseAbandoned(Database(), Pool, Now), 1);
    EXPECT_EQ(Entry(begun).State, LedgerState::Doubtful);
    EXPECT_EQ(Entry(begun).Cards.at(0).State, LedgerState::Doubtful);
    EXPECT_EQ(Entry(own).State, LedgerState::Printing);
    EXPECT_EQ(Claim(5), std::nullopt);
}

/// What a station prints that was silent for so long that another one has its entry.
TEST_F(LedgerPool, LetsNoCardBeginOfAnEntryThatAnotherStationHas)
{
    const auto id = AddWaiting(QStringLiteral("Ada"));
    RecordLedger ledger;
    ledger.Open(Store, {.On = true, .KeepValues = true, .HashKey = {}});
    Claim(4);
    const RecordRunPtr run = ledger.Resume(Entry(id));
    ReleaseAbandoned(Database(), Pool, Now);
    for (const bool isTaken : {false, true}) {
        if (isTaken) {
            EXPECT_EQ(Claim(5), id);
        }
        ledger.BeginCard(*run, {}, {});
        ledger.Flush();
        EXPECT_TRUE(run->IsVoid());
        EXPECT_EQ(Entry(id).State, LedgerState::Received);
        EXPECT_TRUE(Entry(id).Cards.empty());
    }
}

TEST_F(LedgerPool, IsWrittenWhenTheRoadOfTheRecordHasEndedAndAnswersThatNoCardIsPrintedYet)
{
    RecordLedger ledger;
    ledger.Open(Store, {.On = true, .KeepValues = true, .HashKey = {}});
    LedgerEntry entry = Waiting(QStringLiteral("Ada"));
    entry.Pool = Pool;
    QString answer;
    const RecordRunPtr run = ledger.Begin(entry);
    run->Settled = [&](const LedgerEntry& settled) { answer = AnswerTo(settled); };
    ledger.SetValues(*run, 1, [](int /*position*/) { return QStringLiteral("Ada"); }, {});
    EXPECT_FALSE(ledger.HasChanges());
    ledger.EndRoad(*run);
    ledger.Flush();
    EXPECT_EQ(answer, QStringLiteral("OK 1 0"));
    EXPECT_EQ(Entry(1).State, LedgerState::Received);
    EXPECT_EQ(Claim(4), qlonglong{1});
}

TEST_F(LedgerPool, GivesNoEntryTwiceToMembersThatAskAtTheSameMoment)
{
    constexpr int members = 4;
    constexpr int entries = 60;
    for (int i = 0; i < entries; ++i)
        AddWaiting(QString::number(i));
    std::array<std::vector<qlonglong>, members> claimed;
    std::vector<std::thread> threads;
    threads.reserve(members);
    std::atomic<int> failures = 0;
    for (int member = 0; member < members; ++member)
        threads.emplace_back([&, member] {
            try {
                Connection own;
                own.Open(Path);
                std::vector<qlonglong>& mine = claimed[static_cast<std::size_t>(member)];
                while (const auto id = ClaimEntry(own.Database(), {Pool, member + 1, {}}, mine))
                    mine.push_back(*id);
            } catch (const Failure&) {
                ++failures;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
    std::vector<qlonglong> all;
    for (const auto& mine : claimed) {
        EXPECT_TRUE(std::is_sorted(mine.begin(), mine.end()));
        all.insert(all.end(), mine.begin(), mine.end());
    }
    std::sort(all.begin(), all.end());
    EXPECT_EQ(all.size(), static_cast<std::size_t>(entries));
    EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end());
}

} // namespace
} // namespace vantrel::test
