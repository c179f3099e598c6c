#include "ledger/LedgerStations.h"
#include "LedgerTest.h"

namespace vantrel::test {

namespace {

class LedgerStations : public LedgerTest
{};

TEST_F(LedgerStations, AreKeptByMachineAndSession)
{
    const LedgerStation first{QStringLiteral("a"), 1, 10, 20, false, QStringLiteral("L"),
                              QStringLiteral("P")};
    const LedgerStation second{QStringLiteral("a"), 2, 11, 21, false, {}, {}};
    const LedgerStation other{QStringLiteral("b"), 1, 12, 22, true, {}, {}};
    for (const LedgerStation& station : {other, second, first})
        NoteStation(Database(), station);
    LedgerStation later = first;
    later.Seen = 30;
    later.Layout = QStringLiteral("M");
    NoteStation(Database(), later);
    const auto stations = ReadStations(Database());
    ASSERT_EQ(stations.size(), 3U);
    EXPECT_EQ(stations[0].Seen, 30);
    EXPECT_EQ(stations[0].Started, 10);
    EXPECT_EQ(stations[0].Layout, QStringLiteral("M"));
    EXPECT_EQ(stations[0].Printer, QStringLiteral("P"));
    EXPECT_EQ(stations[1].Session, 2);
    EXPECT_EQ(stations[2].Machine, QStringLiteral("b"));
    EXPECT_TRUE(stations[2].Ended);
}

TEST_F(LedgerStations, OfALedgerWithoutTheirTableAreNone)
{
    Database().Execute(QStringLiteral("DROP TABLE LedgerStations"));
    EXPECT_TRUE(ReadStations(Database()).empty());
}

TEST_F(LedgerStations, ASessionIsOneMachinesAsLongAsItRuns)
{
    LedgerStation first{QStringLiteral("a"), 1, 100'000, 100'000, false, {}, {}};
    LedgerStation other{
        QStringLiteral("b"), 1, 100'000, 100'000 + SilentMilliseconds - 1, false, {}, {}};
    EXPECT_EQ(ClaimSession(Database(), first), QString());
    EXPECT_EQ(ClaimSession(Database(), other), first.Machine);
    EXPECT_EQ(ReadStations(Database()).size(), 1U);
    // Another number, and the same station again after it was killed.
    other.Session = 2;
    EXPECT_EQ(ClaimSession(Database(), other), QString());
    EXPECT_EQ(ClaimSession(Database(), first), QString());
    // It is silent for long enough, or has ended.
    other.Session = 1;
    ++other.Seen;
    EXPECT_EQ(ClaimSession(Database(), other), QString());
    other.Ended = true;
    NoteStation(Database(), other);
    first.Seen = other.Seen;
    EXPECT_EQ(ClaimSession(Database(), first), QString());
}

} // namespace
} // namespace vantrel::test
