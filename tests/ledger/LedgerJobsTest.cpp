#include "ledger/LedgerJobs.h"
#include "LedgerTest.h"
#include <gmock/gmock.h>

// What the print server reports of a card's job.

namespace vantrel::test {

namespace {

LedgerCard CardOfJob(int job)
{
    LedgerCard card = CardIn(LedgerState::Printed);
    card.File.clear();
    card.Job = job;
    card.Changed = QDateTime::currentMSecsSinceEpoch();
    return card;
}

LedgerEntry EntryOfJobs(const std::vector<int>& jobs)
{
    LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
    entry.Cards.clear();
    for (const int job : jobs)
        entry.Cards.push_back(CardOfJob(job));
    return entry;
}

} // namespace

TEST_F(LedgerTest, JobsThatWereHandedOverAreOpen)
{
    Add(EntryOfJobs({4, 5}));
    AddPrinted("a file");
    LedgerEntry other = EntryOfJobs({6});
    other.Session = 2;
    Add(other);
    EXPECT_THAT(OpenJobs(Database(), 1), testing::ElementsAre(4, 5));
}

TEST_F(LedgerTest, AnEntryIsDoneOnceAllItsJobsAre)
{
    const qlonglong id = Add(EntryOfJobs({4, 5}));
    NoteJobState(Database(), 1, 4, LedgerState::Done, {});
    EXPECT_EQ(Entry(id).State, LedgerState::Printed);
    EXPECT_EQ(Entry(id).Cards.at(0).State, LedgerState::Done);
    NoteJobState(Database(), 1, 5, LedgerState::Done, {});
    EXPECT_EQ(Entry(id).State, LedgerState::Done);
    EXPECT_TRUE(OpenJobs(Database(), 1).empty());
}

TEST_F(LedgerTest, ACanceledJobFailsItsEntryWithTheReason)
{
    const qlonglong id = Add(EntryOfJobs({4, 5}));
    NoteJobState(Database(), 1, 4, LedgerState::Failed, QStringLiteral("Canceled at the printer"));
    NoteJobState(Database(), 1, 5, LedgerState::Done, {});
    EXPECT_EQ(Entry(id).State, LedgerState::Failed);
    EXPECT_EQ(Entry(id).Reason, QStringLiteral("Canceled at the printer"));
}

TEST_F(LedgerTest, ANumberThatTheServerGaveAgainBelongsToTheLatestCard)
{
    const qlonglong earlier = Add(EntryOfJobs({4}));
    const qlonglong later = Add(EntryOfJobs({4}));
    NoteJobState(Database(), 1, 4, LedgerState::Done, {});
    EXPECT_EQ(Entry(earlier).State, LedgerState::Printed);
    EXPECT_EQ(Entry(later).State, LedgerState::Done);
}

TEST_F(LedgerTest, AnUnknownJobChangesNothing)
{
    const qlonglong id = Add(EntryOfJobs({4}));
    NoteJobState(Database(), 1, 7, LedgerState::Failed, QStringLiteral("Canceled"));
    EXPECT_EQ(Entry(id).State, LedgerState::Printed);
}

} // namespace vantrel::test
