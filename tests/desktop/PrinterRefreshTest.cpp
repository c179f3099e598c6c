#include "desktop/PrinterWindow.h"
#include <QPushButton>
#include <QTest>

// Refreshing the list of the printer selection, and closing the selection meanwhile.

namespace vantrel::test {

TEST_F(PrinterWindowTest, ARefreshShowsTheMachineAsItIsNow)
{
    Open();
    EXPECT_EQ(Column(PrinterList(), 1), QStringList(QStringLiteral("Active")));
    Station.Printers.Spool[First] = {true, true, 3};
    EXPECT_EQ(Column(PrinterList(), 1), QStringList(QStringLiteral("Active")));
    Press("cmdRefresh");
    EXPECT_EQ(Column(PrinterList(), 1), QStringList(QStringLiteral("Paused")));
    EXPECT_EQ(Column(PrinterList(), 2), QStringList(QStringLiteral("3")));
}

TEST_F(PrinterWindowTest, ARefreshKeepsOnlyThePrinterThatWasClicked)
{
    WithPrinters({First, QStringLiteral("Other")});
    Open();
    ASSERT_EQ(Selected(PrinterList()), First);
    Press("cmdRefresh");
    EXPECT_EQ(Selected(PrinterList()), QString());
    Click(PrinterList(), 1);
    Press("cmdRefresh");
    EXPECT_EQ(Selected(PrinterList()), QStringLiteral("Other"));
}

TEST_F(PrinterWindowTest, ARefreshKeepsThePrinterChosenByAKey)
{
    WithPrinters({First, QStringLiteral("Other")});
    Open();
    ASSERT_EQ(Selected(PrinterList()), First);
    PrinterList().setFocus();
    QTest::keyClick(&PrinterList(), Qt::Key_Down);
    ASSERT_EQ(Selected(PrinterList()), QStringLiteral("Other"));
    Press("cmdRefresh");
    EXPECT_EQ(Selected(PrinterList()), QStringLiteral("Other"));
}

TEST_F(PrinterWindowTest, ARefreshKeepsThePrinterOfTheLayoutOnceItIsClicked)
{
    WithPrinters({First, QStringLiteral("Other")});
    Open();
    Click(PrinterList(), 0);
    Press("cmdRefresh");
    EXPECT_EQ(Selected(PrinterList()), First);
}

TEST_F(PrinterWindowTest, AWindowManagerCannotCloseIt)
{
    Open();
    EXPECT_FALSE(DesktopStation::CloseByWindowManager(*Dialog));
    QCoreApplication::processEvents();
    ASSERT_FALSE(Dialog.isNull());
    EXPECT_TRUE(Dialog->isVisible());
    Press("cmdCancel");
    EXPECT_TRUE(EventsUntil([&] { return Dialog.isNull(); }));
}

TEST_F(PrinterWindowTest, TheStationEndsWhileItStandsOpen)
{
    Station.Load();
    Open();
    Station.Window.Unload();
    EXPECT_FALSE(Dialog->isVisible());
}

TEST_F(PrinterWindowTest, TheRefreshTimerStandsAndOnlyEverStopsItself)
{
    Open();
    auto& timer = Get<QTimer>("tmrRefresh");
    EXPECT_FALSE(timer.isActive());
    EXPECT_EQ(timer.interval(), 500);
    PrinterList().clear();
    timer.start(0);
    EXPECT_TRUE(EventsUntil([&] { return !timer.isActive(); }));
    EXPECT_EQ(PrinterList().topLevelItemCount(), 0);
}

TEST_F(PrinterWindowTest, ARefreshInsideOfARefreshLeavesEachPrinterOnce)
{
    WithPrinters({First, QStringLiteral("Other"), QStringLiteral("Third")});
    Open();
    Station.Operator.WhileEventsRun.emplace_back([this] { Press("cmdRefresh"); });
    Press("cmdRefresh");
    EXPECT_EQ(Column(PrinterList(), 0),
              (QStringList{First, QStringLiteral("Other"), QStringLiteral("Third")}));
}

} // namespace vantrel::test
