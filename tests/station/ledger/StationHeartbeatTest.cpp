#include "station/ledger/StationHeartbeat.h"
#include "StationWithLedger.h"
#include "ledger/LedgerStations.h"
#include "support/Events.h"
#include <QCoreApplication>
#include <QSysInfo>
#include <QTimer>

// What a station says of itself, so that others see whether it runs.

namespace vantrel::test {

class StationHeartbeat : public StationWithLedger
{
protected:
    /// Waits until the station has said something.
    std::optional<LedgerStation> Said()
    {
        EventsUntil([this] { return !ReadStations(Store()).empty(); });
        const auto stations = ReadStations(Store());
        EXPECT_EQ(stations.size(), 1U);
        return stations.empty() ? std::nullopt : std::optional(stations.front());
    }
};

TEST_F(StationHeartbeat, TellsMachineSessionLayoutAndPrinter)
{
    TellThatItRuns(Session);
    const auto station = Said();
    ASSERT_TRUE(station);
    EXPECT_EQ(station->Machine, QSysInfo::machineHostName());
    EXPECT_EQ(station->Session, 1);
    EXPECT_EQ(station->Layout, Name);
    EXPECT_EQ(station->Printer, Session.CurrentParams.PrinterDevice);
    EXPECT_FALSE(station->Ended);
    EXPECT_GT(station->Started, 0);
    EXPECT_GE(station->Seen, station->Started);
}

TEST_F(StationHeartbeat, WaitsWhileAPageIsBeingSaved)
{
    Session.LayoutDb.BeginTrans();
    TellThatItRuns(Session);
    int looks = 0;
    EventsUntil([&] { return ++looks == 20; });
    EXPECT_TRUE(ReadStations(Store()).empty());
    Session.LayoutDb.RollbackTrans();
    EXPECT_TRUE(Said());
}

TEST_F(StationHeartbeat, IsNotWrittenWithoutALedger)
{
    Session.Options.Ledger = false;
    TellThatItRuns(Session);
    int looks = 0;
    EventsUntil([&] { return ++looks == 20; });
    EXPECT_TRUE(ReadStations(Store()).empty());
}

TEST_F(StationHeartbeat, TellsTheOrderlyEnd)
{
    TellThatItRuns(Session);
    ASSERT_TRUE(Said());
    // The station's event loop ends.
    QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
    QCoreApplication::exec();
    EXPECT_TRUE(Said()->Ended);
}

} // namespace vantrel::test
