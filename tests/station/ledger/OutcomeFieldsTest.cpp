#include "station/ledger/OutcomeFields.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

// The line of the journal that tells the outcome of a record.

namespace vantrel {

void PrintTo(const JournalField& field, std::ostream* stream)
{
    *stream << field.Name.constData() << '=' << field.Value.constData();
}

bool operator==(const JournalField& one, const JournalField& other)
{
    return one.Name == other.Name && one.Value == other.Value;
}

} // namespace vantrel

namespace vantrel::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

LedgerEntry EntryOf(LedgerState state)
{
    LedgerEntry entry;
    entry.Id = 7;
    entry.State = state;
    entry.Received = 1000;
    entry.Session = 2;
    entry.Source = QStringLiteral("192.168.7.10:51234");
    entry.Layout = QStringLiteral("Member Card");
    entry.Values = {QStringLiteral("Ada Lovelace")};
    return entry;
}

TEST(OutcomeFields, APrintedRecordIsTold)
{
    LedgerEntry entry = EntryOf(LedgerState::Printed);
    entry.Cards.resize(3);
    entry.Cards[0].State = LedgerState::Printed;
    entry.Cards[1].State = LedgerState::Done;
    entry.Cards[2].State = LedgerState::Failed;
    EXPECT_THAT(OutcomeFields(entry, 1012),
                ElementsAre(JournalField{"MESSAGE", "record 7 printed, cards: 2, 12 ms"},
                            JournalField{"PRIORITY", "6"}, JournalField{"VANTREL_RECORD", "7"},
                            JournalField{"VANTREL_STATE", "printed"},
                            JournalField{"VANTREL_SESSION", "2"},
                            JournalField{"VANTREL_SOURCE", "192.168.7.10:51234"},
                            JournalField{"VANTREL_LAYOUT", "Member Card"},
                            JournalField{"VANTREL_CARDS", "2"},
                            JournalField{"VANTREL_MILLISECONDS", "12"}));
}

TEST(OutcomeFields, AFailureIsAWarningWithItsReason)
{
    LedgerEntry entry = EntryOf(LedgerState::Failed);
    entry.Reason = QStringLiteral("The printer is not there");
    const auto fields = OutcomeFields(entry, 1000);
    EXPECT_THAT(fields,
                Contains(JournalField{
                    "MESSAGE", "record 7 failed, cards: 0, 0 ms: The printer is not there"}));
    EXPECT_THAT(fields, Contains(JournalField{"PRIORITY", "4"}));
    EXPECT_THAT(fields, Contains(JournalField{"VANTREL_REASON", "The printer is not there"}));
}

TEST(OutcomeFields, AReprintNamesTheFirstEntry)
{
    LedgerEntry entry = EntryOf(LedgerState::Printed);
    entry.ReprintOf = 3;
    EXPECT_THAT(OutcomeFields(entry, 1000), Contains(JournalField{"VANTREL_REPRINT_OF", "3"}));
}

TEST(OutcomeFields, ALongReasonIsCut)
{
    LedgerEntry entry = EntryOf(LedgerState::Failed);
    entry.Reason = QString(5'000'000, QChar(0xE9));
    EXPECT_THAT(OutcomeFields(entry, 1000),
                Contains(JournalField{"VANTREL_REASON", QString(1000, QChar(0xE9)).toUtf8()}));
}

TEST(OutcomeFields, AClockThatWasPutBackGivesNoTimeBelowZero)
{
    EXPECT_THAT(OutcomeFields(EntryOf(LedgerState::Printed), 10),
                Contains(JournalField{"VANTREL_MILLISECONDS", "0"}));
}

} // namespace
} // namespace vantrel::test
