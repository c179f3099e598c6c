#include "road/Compositor.h"
#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "support/Events.h"
#include <csignal>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// The station's window covers more.
constexpr int PixelsOfAWindow = 100000;

TEST(Wayland, AStationShowsItsWindowPrintsAndEndsWithoutAWarning)
{
    const Compositor desktop;
    StationFolder folder;
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder, {.Environment = desktop.Environment()});
    ASSERT_TRUE(station.WaitUntilItListens(port));
    EXPECT_TRUE(EventsUntil([&] { return desktop.CoveredPixels() > PixelsOfAWindow; }));
    SendRecord(port, "<Anna+7>");
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("Anna 7"));
    station.SendSignal(SIGTERM);
    EXPECT_EQ(station.ExitCode(), 0);
    EXPECT_EQ(station.ErrorLines(), QStringList());
}

TEST(Wayland, AStationHidesAndShowsItsWindow)
{
    const Compositor desktop;
    StationFolder folder;
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder, {.Environment = desktop.Environment()});
    ASSERT_TRUE(station.WaitUntilItListens(port));
    ASSERT_TRUE(EventsUntil([&] { return desktop.CoveredPixels() > PixelsOfAWindow; }));
    folder.SetStatus("Visible", QStringLiteral("False"));
    EXPECT_TRUE(EventsUntil([&] { return desktop.CoveredPixels() == 0; }));
    folder.SetStatus("Visible", QStringLiteral("True"));
    EXPECT_TRUE(EventsUntil([&] { return desktop.CoveredPixels() > PixelsOfAWindow; }));
    folder.SetStatus("Active", QStringLiteral("False"));
    EXPECT_EQ(station.ExitCode(), 0);
    EXPECT_EQ(station.ErrorLines(), QStringList());
}

} // namespace
} // namespace vantrel::test
