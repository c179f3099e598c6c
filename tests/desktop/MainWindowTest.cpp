#include "base/Profile.h"
#include "desktop/DesktopStation.h"
#include "desktop/controls/DesktopPanel.h"
#include "desktop/designer/frmDocument.h"
#include "desktop/window/frmNav.h"
#include "ledger/LedgerTables.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/LedgerFill.h"
#include <QApplication>
#include <QHelpEvent>
#include <QMdiArea>
#include <QMouseEvent>
#include <QStatusBar>
#include <QToolTip>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

QString Stored(const Session& session, const char* key)
{
    return ReadProfileValue(SettingsPath(session.ProgramFolder), SessionSection(session),
                            QLatin1StringView(key), QStringLiteral("(absent)"));
}

TEST(MainWindow, HasNoCloseBoxAndNoCloseCommand)
{
    DesktopStation station;
    station.Load();
    EXPECT_FALSE(station.Window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_TRUE(station.Window.windowFlags().testFlag(Qt::WindowTitleHint));
    EXPECT_FALSE(station.Window.close());
    EXPECT_TRUE(station.Window.isVisible());
}

TEST(MainWindow, IsPlacedInTwips)
{
    DesktopStation station;
    station.Load();
    EXPECT_EQ(station.Window.pos(), QPoint(30, 20));
    EXPECT_EQ(station.Window.size(), QSize(695, 593));
}

TEST(MainWindow, ShowsTheStationsFace)
{
    DesktopStation station;
    station.Load();
    EXPECT_EQ(station.Window.windowTitle(), QStringLiteral(" Ostrand Vantrel v6.0"));
    EXPECT_EQ(station.Get<QLabel>("SB1").text(), QStringLiteral("Vantrel Disabled"));
    EXPECT_EQ(station.Get<QLabel>("SB2").text(), QStringLiteral("Layout (None)"));
    station.Session.Face.SetCaption(QStringLiteral(" <b>Name</b>"));
    EXPECT_EQ(station.Window.windowTitle(), QStringLiteral(" <b>Name</b>"));
    station.Session.Face.SetPanelText(3, QStringLiteral("Got Data (TCP/IP)"));
    station.Session.Face.SetPanelToolTip(3, QStringLiteral("from there"));
    EXPECT_EQ(station.Get<QLabel>("SB3").text(), QStringLiteral("Got Data (TCP/IP)"));
    EXPECT_EQ(station.Get<QLabel>("SB3").toolTip(), QStringLiteral("from there"));
}

TEST(MainWindow, OfAStationInAPoolShowsHowManyRecordsWaitInIt)
{
    StationOptions options;
    options.Pool = {QStringLiteral("badges"), PoolWork::Print};
    DesktopStation station(true, options);
    MakeLedgerTables(station.Session.LayoutDb.Database());
    LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
    entry.State = LedgerState::Received;
    entry.Session = NoSession;
    entry.Pool = options.Pool.Name;
    entry.Cards.clear();
    AddLedgerEntry(station.Session.LayoutDb.Database(), entry);
    station.Load();
    auto& panel = station.Get<QLabel>("SBPool");
    EXPECT_EQ(panel.text(), QStringLiteral("Pool: 1 waiting (badges)"));
    EXPECT_TRUE(panel.toolTip().contains(QStringLiteral("opens no port")));
    AddLedgerEntry(station.Session.LayoutDb.Database(), entry);
    const QString two = QStringLiteral("Pool: 2 waiting (badges)");
    EXPECT_TRUE(EventsUntil([&] { return panel.text() == two; })) << panel.text().toStdString();
}

TEST(MainWindow, ThatIsHiddenAsksForNoRecordsOfItsPool)
{
    StationOptions options;
    options.Pool.Name = QStringLiteral("badges");
    DesktopStation station(false, options);
    MakeLedgerTables(station.Session.LayoutDb.Database());
    station.Load();
    auto& panel = station.Get<QLabel>("SBPool");
    EXPECT_EQ(panel.text(), QString());
    station.Session.Settings.MainVisible = true;
    station.Session.Face.NotifyVisibility(true);
    EXPECT_EQ(panel.text(), QStringLiteral("Pool: 0 waiting (badges)"));
}

TEST(MainWindow, OfAStationInNoPoolHasThreePanels)
{
    DesktopStation station;
    station.Load();
    EXPECT_EQ(station.Window.findChild<QLabel*>(QStringLiteral("SBPool")), nullptr);
    EXPECT_EQ(station.Get<QStatusBar>("SB").findChildren<DesktopPanel*>().size(), 3);
}

TEST(MainWindow, AClickOnTheFirstPanelCopiesItsTextIntoItsToolTip)
{
    DesktopStation station;
    station.Load();
    auto& panel = station.Get<QLabel>("SB1");
    EXPECT_EQ(panel.toolTip(), QString());
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(2, 2), QPointF(2, 2), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&panel, &release);
    EXPECT_EQ(panel.toolTip(), QStringLiteral("Vantrel Disabled"));
}

/// A station whose second panel has a text that is longer than the panel.
class LongPanel : public DesktopStation
{
public:
    LongPanel()
    {
        Load();
        Session.Face.SetPanelText(2, Text);
        QCoreApplication::processEvents();
    }

    const QString Text = QStringLiteral("Layout (<b>") + QString(60, QLatin1Char('W')) +
                         QStringLiteral(") Page 1 of 2");
    QLabel& Panel() { return Get<QLabel>("SB2"); }
    /// Moves the pointer onto the panel and waits. @return the tool tip that is shown
    QString TipOnPanel()
    {
        const QPoint at = Panel().rect().center();
        QHelpEvent rest(QEvent::ToolTip, at, Panel().mapToGlobal(at));
        QCoreApplication::sendEvent(&Panel(), &rest);
        return QToolTip::text();
    }
};

TEST(MainWindow, ALongTextOfAPanelEndsInAnEllipsis)
{
    LongPanel station;
    QLabel& panel = station.Panel();
    const QImage seen = panel.grab().toImage();
    EXPECT_EQ(panel.text(), station.Text);
    // The panel looks like one with a shorter text that ends in an ellipsis.
    bool ends = false;
    for (qsizetype length = 1; length < station.Text.size() && !ends; ++length) {
        panel.setText(station.Text.left(length) + QChar(0x2026));
        ends = panel.fontMetrics().horizontalAdvance(panel.text()) < panel.width() &&
               panel.grab().toImage() == seen;
    }
    EXPECT_TRUE(ends);
}

TEST(MainWindow, APanelThatCutsItsTextOffShowsItWholeInAToolTip)
{
    LongPanel station;
    EXPECT_EQ(station.TipOnPanel(), Qt::convertFromPlainText(station.Text));
    EXPECT_EQ(station.Panel().toolTip(), QString());
    // A panel's own tool tip takes precedence.
    station.Session.Face.SetPanelToolTip(2, QStringLiteral("told"));
    EXPECT_EQ(station.TipOnPanel(), Qt::convertFromPlainText(QStringLiteral("told")));
    QToolTip::hideText();
}

TEST(MainWindow, APanelWithRoomForItsTextShowsNoToolTip)
{
    LongPanel station;
    station.Session.Face.SetPanelText(2, QStringLiteral("Layout (None)"));
    QToolTip::hideText();
    ASSERT_TRUE(EventsUntil([] { return !QToolTip::isVisible(); }));
    EXPECT_EQ(station.TipOnPanel(), QString());
}

TEST(MainWindow, ReopensTheLastLayoutAndShowsItsCard)
{
    DesktopStation station;
    station.WithLayout();
    station.Session.Document.Hide();
    station.Session.Settings.LastLayout = QStringLiteral("Badge");
    station.Load();
    auto& document = station.Get<frmDocument>("frmDocument");
    EXPECT_TRUE(EventsUntil([&] { return document.isVisible(); }));
    EXPECT_EQ(station.Window.windowTitle(),
              QStringLiteral(" Ostrand Vantrel v6.0   (Badge) printing to (Card Printer)"));
    EXPECT_TRUE(station.Get<QAction>("cmdSave").isEnabled());
}

TEST(MainWindow, ALaunchersStatusFileHidesAndShowsIt)
{
    DesktopStation station;
    station.Load();
    station.WriteStatus(QStringLiteral("Visible"), QStringLiteral("False"));
    EXPECT_TRUE(EventsUntil([&] { return !station.Window.isVisible(); }));
    EXPECT_FALSE(station.Session.Settings.MainVisible);
    station.WriteStatus(QStringLiteral("Visible"), QStringLiteral("True"));
    EXPECT_TRUE(EventsUntil([&] { return station.Window.isVisible(); }));
    EXPECT_TRUE(station.Session.Settings.MainVisible);
}

TEST(MainWindow, StaysHiddenWhileTheStationIsHidden)
{
    DesktopStation station(false);
    station.WriteStatus(QStringLiteral("Visible"), QStringLiteral("False"));
    station.Load();
    EXPECT_FALSE(station.Window.isVisible());
    station.Window.show();
    EXPECT_TRUE(EventsUntil([&] { return !station.Window.isVisible(); }));
}

TEST(MainWindow, TheStatusFileUndoesTheHideCommand)
{
    DesktopStation station;
    station.WriteStatus(QStringLiteral("Visible"), QStringLiteral("True"));
    station.Load();
    EXPECT_TRUE(EventsUntil([&] { return station.Window.isVisible(); }));
    station.Choose("cmdHide");
    EXPECT_FALSE(station.Session.Settings.MainVisible);
    EXPECT_TRUE(EventsUntil([&] { return station.Session.Settings.MainVisible; }));
    EXPECT_TRUE(station.Window.isVisible());
    // The menu keeps the caption that the command had set.
    EXPECT_EQ(station.Get<QAction>("cmdHide").text(), QStringLiteral("Show Vantrel..."));
}

TEST(MainWindow, AnInactiveSessionUnloadsAndEndsWithExitCodeZero)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    station.Window.resize(700, 500);
    station.WriteStatus(QStringLiteral("Active"), QStringLiteral("False"));
    EXPECT_EQ(DesktopStation::RunToEnd(), 0);
    EXPECT_FALSE(station.Window.isVisible());
    EXPECT_EQ(Stored(station.Session, "MTop"), QStringLiteral("300"));
    EXPECT_EQ(Stored(station.Session, "MLeft"), QStringLiteral("450"));
    EXPECT_EQ(Stored(station.Session, "MWidth"), QStringLiteral("10500"));
    EXPECT_EQ(Stored(station.Session, "MHeight"), QStringLiteral("7500"));
    EXPECT_EQ(Stored(station.Session, "LastLayout"), QStringLiteral("Badge"));
}

TEST(MainWindow, AMinimisedWindowLeavesItsStoredPlaceUnchanged)
{
    DesktopStation station;
    station.Load();
    station.Window.showMinimized();
    station.Window.Unload();
    EXPECT_EQ(Stored(station.Session, "MTop"), QStringLiteral("(absent)"));
    EXPECT_EQ(Stored(station.Session, "LastLayout"), QString());
}

TEST(MainWindow, AWindowThatNeverLoadedStoresNothing)
{
    DesktopStation station;
    station.Window.Unload();
    EXPECT_EQ(Stored(station.Session, "LastLayout"), QStringLiteral("(absent)"));
}

TEST(MainWindow, AStatusThatIsNoBooleanEndsTheStationWithExitCodeOne)
{
    DesktopStation station;
    station.WriteStatus(QStringLiteral("Visible"), QStringLiteral("perhaps"));
    station.Load();
    EXPECT_EQ(DesktopStation::RunToEnd(), 1);
    EXPECT_EQ(Stored(station.Session, "LastLayout"), QStringLiteral("(absent)"));
}

TEST(MainWindow, StretchesItsPictureAfterAResize)
{
    DesktopStation station;
    const QString path = station.WritePng(QStringLiteral("back.png"), 40, 10);
    station.Session.Settings.Background = LoadPicture(path);
    station.Load();
    auto& workspace = station.Get<QMdiArea>("Workspace");
    EXPECT_TRUE(EventsUntil([&] {
        return workspace.background().textureImage().size() == workspace.viewport()->size();
    }));
    station.Window.resize(500, 400);
    EXPECT_NE(workspace.background().textureImage().size(), workspace.viewport()->size());
    EXPECT_TRUE(EventsUntil([&] {
        return workspace.background().textureImage().size() == workspace.viewport()->size();
    }));
    EXPECT_EQ(workspace.background().textureImage().pixel(100, 100), 0xFF336699U);
}

TEST(MainWindow, ShowsItsBackgroundColour)
{
    DesktopStation station;
    station.Session.Settings.Background = double(0x336699);
    station.Load();
    EXPECT_EQ(station.Get<QMdiArea>("Workspace").background().color(), QColor(0x99, 0x66, 0x33));
}

TEST(MainWindow, ColourZeroIsTheDesktopsOwn)
{
    DesktopStation station;
    station.Session.Settings.Background = 0.0;
    station.Load();
    EXPECT_EQ(station.Get<QMdiArea>("Workspace").background(),
              station.Window.palette().brush(QPalette::Dark));
}

TEST(MainWindow, TheNavigatorKeepsItsPlaceAtTheRight)
{
    DesktopStation station;
    station.Load();
    auto& navigator = station.Get<frmNav>("frmNav");
    EXPECT_TRUE(navigator.isVisible());
    EXPECT_EQ(navigator.pos(), QPoint(695 - 110, 13));
    station.Window.resize(900, 500);
    EXPECT_EQ(navigator.pos(), QPoint(900 - 110, 13));
}

} // namespace
} // namespace vantrel::test
