#include "station/session/TrayIcon.h"
#include "station/capture/Ports.h"
#include "station/session/MainRuntime.h"
#include "station/session/Session.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

struct TrayRow
{
    bool CaptureEnabled;
    bool UseSerial;
    bool UseParallel;
    bool UseIP;
    TrayImage Image;
    const char* Tip;
};

constexpr TrayRow TrayTable[] = {
    {false, true, true, true, TrayImage::Disabled, "Vantrel v5 (Disabled)"},
    {true, true, false, false, TrayImage::Waiting, "Vantrel v5 (Waiting...)"},
    {true, false, true, false, TrayImage::Waiting, "Vantrel v5 (Waiting...)"},
    {true, false, false, true, TrayImage::Waiting, "Vantrel v5 (Waiting...)"},
    {true, false, false, false, TrayImage::Disabled, "Vantrel v5 (Disabled)"}};

class TrayStates : public ::testing::TestWithParam<TrayRow>
{};

TEST_P(TrayStates, FollowThePortsInUse)
{
    const TrayRow row = GetParam();
    TestSession station;
    station.Session.Settings.CaptureEnabled = row.CaptureEnabled;
    station.Session.Settings.UseSerial = row.UseSerial;
    station.Session.Settings.UseParallel = row.UseParallel;
    station.Session.Settings.UseIP = row.UseIP;
    UpdateTrayState(station.Session.Face, station.Session.Settings);
    EXPECT_EQ(station.Session.Face.TrayPicture(), row.Image);
    EXPECT_EQ(station.Session.Face.TrayTip(), QLatin1StringView(row.Tip));
}

INSTANTIATE_TEST_SUITE_P(EveryRow, TrayStates, ::testing::ValuesIn(TrayTable));

TEST(TrayIcon, IsAddedDisabledByTheSessionThatOwnsIt)
{
    TestSession station;
    LoadMain(station.Session);
    EXPECT_TRUE(station.Session.Face.IsTrayShown());
    EXPECT_EQ(station.Session.Face.TrayPicture(), TrayImage::Disabled);
    EXPECT_EQ(station.Session.Face.TrayTip(), QStringLiteral("Vantrel Version 6"));
}

TEST(TrayIcon, ANumberedSessionShowsNoneWhateverIsSet)
{
    TestSession station;
    station.Session.OwnsTrayIcon = false;
    LoadMain(station.Session);
    SetTrayIcon(station.Session.Face, TrayImage::Waiting, TrayTip::Waiting);
    EXPECT_FALSE(station.Session.Face.IsTrayShown());
}

TEST(TrayIcon, AnEmptyTipIsThatOfAWaitingStation)
{
    TestSession station;
    SetTrayIcon(station.Session.Face, TrayImage::Flash, QString());
    EXPECT_EQ(station.Session.Face.TrayPicture(), TrayImage::Flash);
    EXPECT_EQ(station.Session.Face.TrayTip(), QStringLiteral("Vantrel v5 (Waiting...)"));
}

TEST(TrayIcon, AnUnreadablePictureLeavesTheImage)
{
    TestSession station;
    SetTrayIcon(station.Session.Face, TrayImage::Flash, QStringLiteral("before"));
    SetTrayIcon(station.Session.Face, TrayImage::NoHandle, QStringLiteral("after"));
    EXPECT_EQ(station.Session.Face.TrayPicture(), TrayImage::Flash);
    EXPECT_EQ(station.Session.Face.TrayTip(), QStringLiteral("after"));
}

TEST(TrayIcon, ATipHolds63Characters)
{
    TestSession station;
    SetTrayIcon(station.Session.Face, TrayImage::Waiting, QString(64, QLatin1Char('x')));
    EXPECT_EQ(station.Session.Face.TrayTip(), QString(63, QLatin1Char('x')));
}

TEST(TrayIcon, WithoutAPortInUseItIsDisabledAndPanel1SaysSo)
{
    TestSession station;
    station.Session.Settings.CaptureEnabled = true;
    SwitchPorts(station.Session, SwitchMode::All);
    TickStatusBar(station.Session);
    EXPECT_EQ(station.Session.Face.TrayPicture(), TrayImage::Disabled);
    EXPECT_EQ(station.Session.Face.TrayTip(), QStringLiteral("Vantrel v5 (Disabled)"));
    EXPECT_EQ(station.Session.Face.StatusPanel(1).Text, QStringLiteral("Vantrel Disabled"));
}

TEST(IconFlash, AlternatesTheImage25TimesAndShowsWaitingAtTheNextTick)
{
    TestSession station;
    const StationFace& face = station.Session.Face;
    Flash flash;
    for (int tick = 1; tick <= 25; ++tick) {
        EXPECT_TRUE(TickFlash(station.Session.Face, flash)) << tick;
        EXPECT_EQ(face.TrayPicture(), tick % 2 == 1 ? TrayImage::Waiting : TrayImage::Flash)
            << tick;
        EXPECT_EQ(face.TrayTip(), QStringLiteral("Vantrel v5 (Receiving Data)")) << tick;
        EXPECT_EQ(flash.FlashCount, tick);
    }
    EXPECT_FALSE(TickFlash(station.Session.Face, flash));
    EXPECT_EQ(face.TrayPicture(), TrayImage::Waiting);
    EXPECT_EQ(face.TrayTip(), QStringLiteral("Vantrel v5 (Waiting...)"));
    EXPECT_EQ(flash.FlashCount, 0);
    EXPECT_FALSE(flash.FlashState);
}

TEST(IconFlash, ShowsWaitingAtItsEndEvenIfCaptureIsDisabled)
{
    TestSession station;
    UpdateTrayState(station.Session.Face, station.Session.Settings);
    ASSERT_EQ(station.Session.Face.TrayPicture(), TrayImage::Disabled);
    Flash flash;
    while (TickFlash(station.Session.Face, flash)) {
    }
    EXPECT_EQ(station.Session.Face.TrayPicture(), TrayImage::Waiting);
    EXPECT_EQ(station.Session.Face.TrayTip(), QStringLiteral("Vantrel v5 (Waiting...)"));
}

TEST(IconFlash, LastsAsLongForTheNextRecord)
{
    TestSession station;
    Flash flash;
    for (int record = 0; record < 2; ++record) {
        int ticks = 1;
        while (TickFlash(station.Session.Face, flash))
            ++ticks;
        EXPECT_EQ(ticks, 26) << record;
    }
}

} // namespace
} // namespace vantrel::test
