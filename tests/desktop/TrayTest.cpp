#include "desktop/DesktopStation.h"
#include "desktop/designer/frmDocument.h"
#include "desktop/window/DesktopTray.h"
#include "desktop/window/frmStatus.h"
#include "station/capture/Pipeline.h"
#include "station/session/MainRuntime.h"
#include "support/Events.h"
#include <QApplication>
#include <QMdiArea>
#include <QMenu>
#include <QMouseEvent>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station whose ticks of the flash come one by one.
class Flashing : public DesktopStation
{
public:
    Flashing()
    {
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        Load();
        // So long that the timer never ticks by itself.
        Timer().setInterval(1000000);
    }

    QTimer& Timer() { return Get<QTimer>("tmrFlash"); }
    void TakeRecord() { ProcessStream(Session, QStringLiteral("<A>")); }
    void Tick() { QMetaObject::invokeMethod(&Timer(), "timeout"); }
};

TEST(TrayFlash, StandsStillUntilARecordComes)
{
    Flashing station;
    EXPECT_FALSE(station.Timer().isActive());
    station.TakeRecord();
    EXPECT_TRUE(station.Timer().isActive());
}

TEST(TrayFlash, TicksEvery100Milliseconds)
{
    DesktopStation station;
    EXPECT_EQ(station.Get<QTimer>("tmrFlash").interval(), 100);
}

TEST(TrayFlash, StopsAfter26TicksAndShowsWaiting)
{
    Flashing station;
    station.TakeRecord();
    for (int tick = 1; tick <= 25; ++tick)
        station.Tick();
    EXPECT_TRUE(station.Timer().isActive());
    EXPECT_EQ(station.Session.Face.TrayTip(), QStringLiteral("Vantrel v5 (Receiving Data)"));
    station.Tick();
    EXPECT_FALSE(station.Timer().isActive());
    EXPECT_EQ(station.Session.Face.TrayTip(), QStringLiteral("Vantrel v5 (Waiting...)"));
}

TEST(TrayFlash, ContinuesWhenAnotherRecordComes)
{
    Flashing station;
    station.TakeRecord();
    for (int tick = 1; tick <= 20; ++tick)
        station.Tick();
    station.TakeRecord();
    for (int tick = 21; tick <= 26; ++tick)
        station.Tick();
    EXPECT_FALSE(station.Timer().isActive());
    station.TakeRecord();
    EXPECT_TRUE(station.Timer().isActive());
}

TEST(TrayFlash, DoesNotComeBackOnAStationThatHasUnloaded)
{
    Flashing station;
    station.Window.Unload();
    station.TakeRecord();
    EXPECT_FALSE(station.Timer().isActive());
}

TEST(Tray, MirrorsTheFaceWhileTheSessionShowsIt)
{
    DesktopStation station;
    EXPECT_EQ(station.Window.findChild<QSystemTrayIcon*>(), nullptr);
    station.Load();
    auto& icon = station.Get<QSystemTrayIcon>("TrayIcon");
    EXPECT_TRUE(icon.isVisible());
    EXPECT_EQ(icon.toolTip(), QStringLiteral("Vantrel Version 6"));
    const auto before = icon.icon().cacheKey();
    station.Session.Face.SetTray(TrayImage::Flash, QStringLiteral("now"));
    EXPECT_EQ(icon.toolTip(), QStringLiteral("now"));
    EXPECT_NE(icon.icon().cacheKey(), before);
    station.Window.Unload();
    EXPECT_EQ(station.Window.findChild<QSystemTrayIcon*>(), nullptr);
}

TEST(Tray, ANumberedSessionHasNone)
{
    DesktopStation station;
    station.Session.OwnsTrayIcon = false;
    station.Load();
    UpdateTrayState(station.Session.Face, station.Session.Settings);
    EXPECT_EQ(station.Window.findChild<QSystemTrayIcon*>(), nullptr);
}

TEST(Tray, ARightClickOpensTheFileMenuAndOtherClicksDoNothing)
{
    DesktopStation station;
    station.Load();
    auto& icon = station.Get<QSystemTrayIcon>("TrayIcon");
    auto& menu = station.Get<QMenu>("mnuFile");
    for (const auto reason : {QSystemTrayIcon::Trigger, QSystemTrayIcon::DoubleClick,
                              QSystemTrayIcon::MiddleClick, QSystemTrayIcon::Unknown}) {
        Q_EMIT icon.activated(reason);
        EXPECT_FALSE(menu.isVisible()) << reason;
    }
    Q_EMIT icon.activated(QSystemTrayIcon::Context);
    EXPECT_TRUE(menu.isVisible());
    menu.close();
}

TEST(Tray, ARightClickOpensTheMenuOfAHiddenStationAndLeavesItHidden)
{
    DesktopStation station(false);
    station.WriteStatus(QStringLiteral("Visible"), QStringLiteral("False"));
    station.Load();
    auto& menu = station.Get<QMenu>("mnuFile");
    Q_EMIT station.Get<QSystemTrayIcon>("TrayIcon").activated(QSystemTrayIcon::Context);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_FALSE(station.Window.isVisible());
    menu.close();
}

TEST(Tray, HasEachImageAtEachSizeAndNoTwoAlike)
{
    const QList<int> sides{16, 22, 24, 32, 48, 64};
    for (const int side : sides) {
        std::vector<QImage> seen;
        for (const TrayImage image : {TrayImage::Waiting, TrayImage::Flash, TrayImage::Disabled}) {
            const QIcon icon = DesktopTray::ImageOf(image);
            EXPECT_TRUE(icon.availableSizes().contains(QSize(side, side))) << side;
            seen.push_back(icon.pixmap(side, side).toImage());
            EXPECT_EQ(seen.back().pixelColor(0, 0).alpha(), 0) << side;
            EXPECT_EQ(seen.back().pixelColor(side / 2, side / 2).alpha(), 255) << side;
        }
        EXPECT_NE(seen[0], seen[1]);
        EXPECT_NE(seen[0], seen[2]);
        EXPECT_NE(seen[1], seen[2]);
    }
}

void ReleaseOver(QWidget& widget, Qt::MouseButton button, QPointF at)
{
    QMouseEvent release(QEvent::MouseButtonRelease, at, widget.mapToGlobal(at), button,
                        Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &release);
}

TEST(WorkspaceMenu, OpensOnARightReleaseOverTheEmptyBackgroundOnly)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    auto& document = station.Get<frmDocument>("frmDocument");
    ASSERT_TRUE(EventsUntil([&] { return document.isVisible(); }));
    QWidget& background = *station.Get<QMdiArea>("Workspace").viewport();
    std::vector<PopUp> asked;
    QObject::connect(&station.Session.Face, &StationFace::PopUpAsked, &background,
                     [&](PopUp menu) { asked.push_back(menu); });
    const QPointF empty(background.width() - 3, background.height() - 3);
    ASSERT_EQ(background.childAt(empty.toPoint()), nullptr);
    ReleaseOver(background, Qt::LeftButton, empty);
    ReleaseOver(background, Qt::RightButton, document.mapTo(&background, document.rect().center()));
    EXPECT_TRUE(asked.empty());
    ReleaseOver(background, Qt::RightButton, empty);
    EXPECT_EQ(asked, std::vector<PopUp>({PopUp::mnuBack}));
    EXPECT_TRUE(station.Get<QMenu>("mnuBack").isVisible());
    station.Get<QMenu>("mnuBack").close();
}

TEST(WorkspaceMenu, ANewPaletteRepaintsTheBackground)
{
    DesktopStation station;
    station.Load();
    auto& workspace = station.Get<QMdiArea>("Workspace");
    QPalette palette = station.Window.palette();
    palette.setColor(QPalette::Dark, QColor(1, 2, 3));
    station.Window.setPalette(palette);
    EXPECT_TRUE(EventsUntil([&] { return workspace.background().color() == QColor(1, 2, 3); }));
}

TEST(LayoutStatusWindow, FollowsThePrinterOfTheLayout)
{
    DesktopStation station;
    frmStatus status(station.Session, &station.Window);
    status.show();
    EXPECT_EQ(status.windowTitle(), QStringLiteral("Layout Status"));
    EXPECT_EQ(DesktopStation::Named<QTimer>(status, "tmrStatus").interval(), 50);
    const auto& out = DesktopStation::Named<QLabel>(status, "lblOut");
    station.Session.CurrentParams.PrinterDevice = QStringLiteral("Front Desk");
    EXPECT_TRUE(
        EventsUntil([&] { return out.text() == QStringLiteral("Current Printer = Front Desk"); }));
}

} // namespace
} // namespace vantrel::test
