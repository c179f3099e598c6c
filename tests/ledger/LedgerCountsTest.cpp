#include "ledger/LedgerCounts.h"
#include "LedgerTest.h"
#include <QDateTime>

namespace vantrel::test {

namespace {

/// Noon of a day of the machine's own calendar.
qint64 Noon(int day)
{
    return QDateTime(QDate(2026, 3, day), QTime(12, 0)).toMSecsSinceEpoch();
}

class LedgerCounted : public LedgerTest
{
protected:
    qlonglong AddOn(int day, const std::vector<LedgerCard>& cards,
                    std::optional<qlonglong> reprintOf = {})
    {
        LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
        entry.Received = Noon(day);
        entry.Cards = cards;
        entry.ReprintOf = reprintOf;
        return Add(entry);
    }
    std::vector<LedgerCount> Counts(std::optional<qint64> since = {},
                                    std::optional<qint64> until = {})
    {
        std::vector<LedgerCount> counts;
        CountCards(Database(), since, until,
                   [&](const LedgerCount& count) { counts.push_back(count); });
        return counts;
    }
    QStringList VoidNumbers()
    {
        QStringList numbers;
        for (const LedgerCount& count : Counts())
            numbers += count.VoidNumbers;
        return numbers;
    }
    static LedgerCard CardOf(const char* layout, LedgerState state)
    {
        LedgerCard card = CardIn(state);
        card.Layout = QLatin1StringView(layout);
        return card;
    }
};

const QStringList Number{QStringLiteral("1001")};

TEST_F(LedgerCounted, AnEmptyLedgerHasNoRows)
{
    EXPECT_TRUE(Counts().empty());
}

TEST_F(LedgerCounted, CardsAreCountedByDayAndLayout)
{
    AddOn(2, {CardOf("Pass", LedgerState::Printed), CardOf("Badge", LedgerState::Done)});
    AddOn(1, {CardOf("Badge", LedgerState::Printed), CardOf("Badge", LedgerState::Failed)});
    AddOn(1, {CardOf("Badge", LedgerState::Doubtful), CardOf("Badge", LedgerState::Void)});
    AddOn(1, {CardOf("Badge", LedgerState::Printing)});
    const auto counts = Counts();
    ASSERT_EQ(counts.size(), 3U);
    EXPECT_EQ(counts[0].Day, QDate(2026, 3, 1));
    EXPECT_EQ(counts[0].Layout, QStringLiteral("Badge"));
    EXPECT_EQ(counts[0].Issued, 1);
    EXPECT_EQ(counts[0].Failed, 1);
    EXPECT_EQ(counts[0].Doubtful, 1);
    EXPECT_EQ(counts[0].Void, 1);
    EXPECT_EQ(counts[0].Reprinted, 0);
    EXPECT_EQ(counts[1].Day, QDate(2026, 3, 2));
    EXPECT_EQ(counts[1].Layout, QStringLiteral("Badge"));
    EXPECT_EQ(counts[1].Issued, 1);
    EXPECT_EQ(counts[1].Failed, 0);
    EXPECT_EQ(counts[2].Layout, QStringLiteral("Pass"));
}

TEST_F(LedgerCounted, AReprintedCardIsNotIssuedOnceMore)
{
    const auto first = AddOn(1, {CardIn(LedgerState::Printed)});
    AddOn(2, {CardIn(LedgerState::Done), CardIn(LedgerState::Failed)}, first);
    const auto counts = Counts();
    ASSERT_EQ(counts.size(), 2U);
    EXPECT_EQ(counts[0].Issued, 1);
    EXPECT_EQ(counts[0].Reprinted, 0);
    EXPECT_EQ(counts[1].Issued, 0);
    EXPECT_EQ(counts[1].Reprinted, 1);
    EXPECT_EQ(counts[1].Failed, 1);
}

TEST_F(LedgerCounted, TheDayEndsAtTheMachinesOwnMidnight)
{
    LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
    const qint64 midnight = QDate(2026, 3, 2).startOfDay().toMSecsSinceEpoch();
    entry.Received = midnight - 1;
    Add(entry);
    entry.Received = midnight;
    Add(entry);
    const auto counts = Counts();
    ASSERT_EQ(counts.size(), 2U);
    EXPECT_EQ(counts[0].Day, QDate(2026, 3, 1));
    EXPECT_EQ(counts[1].Day, QDate(2026, 3, 2));
}

TEST_F(LedgerCounted, OnlyArrivalsBetweenTheTimesCount)
{
    for (const int day : {1, 2, 3})
        AddOn(day, {CardIn(LedgerState::Printed)});
    const auto counts = Counts(Noon(2), Noon(3));
    ASSERT_EQ(counts.size(), 1U);
    EXPECT_EQ(counts[0].Day, QDate(2026, 3, 2));
}

TEST_F(LedgerCounted, TheNumberOfAFailedOrVoidCardIsVoid)
{
    AddOn(1, {CardIn(LedgerState::Failed, {QStringLiteral("1001"), QStringLiteral("55")})});
    AddOn(1, {CardIn(LedgerState::Void, {QStringLiteral("1002")})});
    AddOn(1, {CardIn(LedgerState::Doubtful, {QStringLiteral("1003")})});
    AddOn(1, {CardIn(LedgerState::Printed, {QStringLiteral("1004")})});
    EXPECT_EQ(VoidNumbers(),
              QStringList({QStringLiteral("1001"), QStringLiteral("55"), QStringLiteral("1002")}));
}

TEST_F(LedgerCounted, ANumberThatAReprintBearsIsNotVoid)
{
    const auto first = AddOn(1, {CardIn(LedgerState::Failed, Number)});
    AddOn(2, {CardIn(LedgerState::Printed, Number)}, first);
    EXPECT_EQ(VoidNumbers(), QStringList());
}

TEST_F(LedgerCounted, ANumberWhoseReprintsFailedIsVoidOnceOnItsFirstDay)
{
    const auto first = AddOn(1, {CardIn(LedgerState::Failed, Number)});
    AddOn(2, {CardIn(LedgerState::Failed, Number)}, first);
    AddOn(3, {CardIn(LedgerState::Void, Number)}, first);
    EXPECT_EQ(VoidNumbers(), Number);
    EXPECT_EQ(Counts().at(0).VoidNumbers, Number);
}

TEST_F(LedgerCounted, ANumberOnAnIssuedCardIsNotVoidIfItsReprintFails)
{
    const auto first = AddOn(1, {CardIn(LedgerState::Printed, Number)});
    AddOn(1, {CardIn(LedgerState::Failed, Number)}, first);
    EXPECT_EQ(VoidNumbers(), QStringList());
}

TEST_F(LedgerCounted, TheSameNumberOnAnotherLayoutOrPageCountsOnItsOwn)
{
    LedgerCard other = CardIn(LedgerState::Printed, Number);
    other.Layout = QStringLiteral("Pass");
    LedgerCard back = CardIn(LedgerState::Printed, Number);
    back.Page = 2;
    AddOn(1, {CardIn(LedgerState::Failed, Number), other, back});
    EXPECT_EQ(VoidNumbers(), Number);
}

TEST_F(LedgerCounted, AnArrivalAtATimeThatNoCalendarHasIsCounted)
{
    for (const qint64 time :
         {std::numeric_limits<qint64>::min() + 1, std::numeric_limits<qint64>::max() - 1}) {
        LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
        entry.Received = time;
        Add(entry);
    }
    qlonglong issued = 0;
    for (const LedgerCount& count : Counts())
        issued += count.Issued;
    EXPECT_EQ(issued, 2);
}

} // namespace

} // namespace vantrel::test
