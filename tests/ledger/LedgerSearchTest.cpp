#include "ledger/LedgerSearch.h"
#include "LedgerTest.h"

namespace vantrel::test {

namespace {

class LedgerSearchTest : public LedgerTest
{
protected:
    Numbers SearchFor(const LedgerFilter& filter)
    {
        LedgerSearch search(filter);
        Numbers all;
        Steps = 0;
        while (!search.IsDone()) {
            const auto found = search.Step(Database());
            all.insert(all.end(), found.begin(), found.end());
            ++Steps;
        }
        return all;
    }
    /// A ledger whose numbers have gaps, with one entry of five that failed.
    void Fill(qlonglong count, qlonglong apart)
    {
        Database().Execute(QStringLiteral("BEGIN"));
        for (qlonglong number = 1; number <= count; ++number) {
            LedgerEntry entry = PrintedEntry({QStringLiteral("Ada %1").arg(number)});
            entry.Id = number * apart;
            entry.Received = number * 1000;
            if (number % 5 == 0)
                entry.State = LedgerState::Failed;
            Add(entry);
        }
        Database().Execute(QStringLiteral("COMMIT"));
    }

    int Steps = 0;
};

TEST_F(LedgerSearchTest, AnEmptyLedgerIsSearchedInOneStep)
{
    EXPECT_EQ(SearchFor({}), Numbers());
    EXPECT_EQ(Steps, 1);
}

TEST_F(LedgerSearchTest, FindsInStepsWhatIsFoundAtOnce)
{
    Fill(300, 97);
    LedgerFilter byState;
    byState.State = LedgerState::Failed;
    LedgerFilter byText;
    byText.Text = QStringLiteral("ada 1");
    LedgerFilter byTime;
    byTime.Since = 20000;
    byTime.Until = 40000;
    for (const LedgerFilter& filter : {LedgerFilter(), byState, byText, byTime}) {
        const Numbers expected = Found(filter);
        EXPECT_FALSE(expected.empty());
        EXPECT_EQ(SearchFor(filter), expected);
    }
    EXPECT_EQ(SearchFor({}).size(), 300U);
    EXPECT_GT(Steps, 3);
}

TEST_F(LedgerSearchTest, DoesNotFindWhatArrivesMeanwhile)
{
    Fill(50, 100);
    LedgerSearch search({});
    Numbers all = search.Step(Database());
    AddPrinted("Grace");
    while (!search.IsDone()) {
        const auto found = search.Step(Database());
        all.insert(all.end(), found.begin(), found.end());
    }
    EXPECT_EQ(all.size(), 50U);
    EXPECT_EQ(all.front(), 5000);
}

TEST_F(LedgerSearchTest, AnEntryFromANumberOnIsFoundAndCounted)
{
    Fill(10, 1);
    LedgerFilter filter;
    filter.From = 8;
    EXPECT_EQ(Found(filter), Numbers({10, 9, 8}));
    EXPECT_EQ(CountEntries(Database(), filter), 3);
    filter.Before = 10;
    filter.Since = 9000;
    EXPECT_EQ(Found(filter), Numbers({9}));
    const NumberRange range = EntryRange(Database(), filter);
    EXPECT_EQ(range.First, 8);
    EXPECT_EQ(range.Last, 9);
}

} // namespace

} // namespace vantrel::test
