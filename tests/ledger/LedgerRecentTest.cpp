#include "ledger/LedgerRecent.h"
#include "LedgerTest.h"

namespace vantrel::test {

namespace {

class LedgerRecent : public LedgerTest
{
protected:
    Numbers Recent(qlonglong from, qlonglong atMost)
    {
        Numbers numbers;
        for (const LedgerProgress& progress : RecentProgress(Database(), from, atMost))
            numbers.push_back(progress.Id);
        return numbers;
    }
};

TEST_F(LedgerRecent, IsNewestFirstAndHasAnEnd)
{
    EXPECT_TRUE(Recent(0, 10).empty());
    for (int i = 0; i < 5; ++i)
        AddPrinted("Ada");
    EXPECT_EQ(Recent(0, 3), Numbers({5, 4, 3}));
    EXPECT_EQ(Recent(4, 10), Numbers({5, 4}));
}

TEST_F(LedgerRecent, DiffersWhenAnEntryOrACardOfItHasChanged)
{
    LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
    entry.Cards.push_back(CardIn(LedgerState::Printing));
    const qlonglong id = Add(entry);
    const auto now = [this] { return RecentProgress(Database(), 0, 1).at(0); };
    const LedgerProgress before = now();
    EXPECT_EQ(before.Cards, 2);
    EXPECT_TRUE(before == now());
    Database().Change(QStringLiteral("UPDATE LedgerCards SET Changed = Changed + 1 WHERE ID = 2"));
    const LedgerProgress changed = now();
    EXPECT_FALSE(changed == before);
    Database().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'void' WHERE ID = ?"), {id});
    EXPECT_FALSE(now() == changed);
    EXPECT_EQ(now().State, LedgerState::Void);
}

TEST_F(LedgerRecent, TellsAnEntryWithoutCards)
{
    AddInState(LedgerState::Received);
    const auto recent = RecentProgress(Database(), 0, 1);
    ASSERT_EQ(recent.size(), 1U);
    EXPECT_EQ(recent[0].Cards, 0);
    EXPECT_EQ(recent[0].Changed, 0);
}

} // namespace
} // namespace vantrel::test
