#include "desktop/PrinterWindow.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/controls/ScreenUnits.h"
#include "support/PrinterKinds.h"
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

// The printer selection, pressed as an operator presses it.

namespace vantrel::test {

TEST_F(PrinterWindowTest, StandsAtItsPlaceWithoutACloseBoxUnderItsTitle)
{
    Open();
    EXPECT_TRUE(Dialog->isVisible());
    EXPECT_FALSE(Dialog->isModal());
    EXPECT_EQ(Dialog->windowTitle(), QStringLiteral("Printer Selection   (Layout Dependant)"));
    EXPECT_EQ(Dialog->pos(), QPoint(ScreenPixels(1200), ScreenPixels(1200)));
    EXPECT_FALSE(Dialog->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_EQ(Station.Operator.Pointer, (std::vector<bool>{true, false}));
}

TEST_F(PrinterWindowTest, ItsMenuEntryOpensItWithTheHourglassMeanwhile)
{
    Station.Load();
    Station.Choose("cmdPrnSetup");
    const auto& dialog = DesktopStation::Named<frmPrinters2>(Station.Window, "frmPrinters2");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Station.Operator.Pointer, (std::vector<bool>{true, false}));
}

TEST_F(PrinterWindowTest, ItsControlsCarryTheirCaptions)
{
    Open();
    const auto headers = [](const QTreeWidget& list) {
        QStringList texts;
        for (int i = 0; i < list.columnCount(); ++i)
            texts.append(list.headerItem()->text(i));
        return texts.join(QLatin1Char('|'));
    };
    EXPECT_EQ(headers(PrinterList()), QStringLiteral("Printer Name|Status|Jobs"));
    EXPECT_EQ(headers(KindList()), QStringLiteral("Name|Color Capable|Dual Sided"));
    EXPECT_EQ(PrinterList().accessibleName(), QStringLiteral("Available Printers"));
    EXPECT_EQ(KindList().accessibleName(), QStringLiteral("Available Printer Types"));
    EXPECT_EQ(PrinterList().columnWidth(0), ScreenPixels(3160));
    EXPECT_EQ(KindList().columnWidth(0), ScreenPixels(3160));
    constexpr struct
    {
        const char* Name;
        const char* Caption;
    } buttons[] = {{"optOrientation(0)", "Portrait"},
                   {"optOrientation(1)", "Landscape"},
                   {"optOrientation(2)", "Default"},
                   {"chdForceResize", "Force Document Resize"},
                   {"cmdRefresh", "&Refresh"},
                   {"cmdConfig", "&Configure"},
                   {"Command1", "&Preferences"},
                   {"cmdSave", "Save"},
                   {"cmdCancel", "Close"}};
    static_assert(std::size(buttons) == 9);
    for (const auto& row : buttons)
        EXPECT_EQ(Get<QAbstractButton>(row.Name).text(), QLatin1StringView(row.Caption));
}

TEST_F(PrinterWindowTest, ShowsTheLayoutsValues)
{
    WithPrinters({QStringLiteral("Zeta"), First, QStringLiteral("alpha")});
    Params().PrinterType = 11;
    Params().PrinterOrientation = 2;
    Params().PrinterCopies = 4;
    Open();
    EXPECT_EQ(Selected(PrinterList()), First);
    EXPECT_EQ(Selected(KindList()), QStringLiteral("NISCA command text"));
    EXPECT_TRUE(Get<QRadioButton>("optOrientation(1)").isChecked());
    EXPECT_EQ(Get<QLabel>("lblCopies").text(), QStringLiteral("4"));
    EXPECT_EQ(Get<DesktopUpDown>("udCopies").Value(), 4);
}

TEST_F(PrinterWindowTest, KeepsTheOrderOfTheMachineWhateverIsPaused)
{
    WithPrinters({QStringLiteral("Zeta"), QStringLiteral("alpha"), QStringLiteral("Mid")});
    Station.Printers.Spool[QStringLiteral("Zeta")] = {false, false, 0};
    Station.Printers.Spool[QStringLiteral("alpha")] = {true, true, 7};
    Open();
    EXPECT_EQ(
        Column(PrinterList(), 0),
        (QStringList{QStringLiteral("Zeta"), QStringLiteral("alpha"), QStringLiteral("Mid")}));
    EXPECT_EQ(Column(PrinterList(), 1),
              (QStringList{QStringLiteral("Active"), QStringLiteral("Paused"),
                           QStringLiteral("Active")}));
    EXPECT_EQ(Column(PrinterList(), 2),
              (QStringList{QStringLiteral("0"), QStringLiteral("7"), QStringLiteral("0")}));
    const auto picture = [&](int row) {
        return PrinterList().topLevelItem(row)->icon(0).pixmap(16, 16).toImage();
    };
    EXPECT_NE(picture(0), picture(1));
    EXPECT_EQ(picture(1), picture(2));
}

TEST_F(PrinterWindowTest, AStoredOrientationThatIsNeitherShowsTheDefaultAndStays)
{
    Params().PrinterOrientation = 7;
    Open();
    EXPECT_TRUE(Get<QRadioButton>("optOrientation(2)").isChecked());
    Press("cmdSave");
    EXPECT_EQ(Params().PrinterOrientation, 7);
}

TEST_F(PrinterWindowTest, SavingUnderDefaultKeepsTheStoredOrientationForTheNextOpening)
{
    Params().PrinterOrientation = 2;
    Open();
    Press("optOrientation(2)");
    Press("cmdSave");
    EXPECT_EQ(Params().PrinterOrientation, 2);
    EXPECT_TRUE(EventsUntil([&] { return Dialog.isNull(); }));
    Open();
    EXPECT_TRUE(Get<QRadioButton>("optOrientation(1)").isChecked());
}

TEST_F(PrinterWindowTest, SavesWhatIsPressedAndCloses)
{
    WithPrinters({First, QStringLiteral("Other")});
    Open();
    Click(PrinterList(), 1);
    SelectKind(QStringLiteral("FARGO"));
    Press("optOrientation(1)");
    Get<DesktopUpDown>("udCopies").UpButton().click();
    EXPECT_EQ(Get<QLabel>("lblCopies").text(), QStringLiteral("2"));
    Press("cmdSave");
    EXPECT_TRUE(EventsUntil([&] { return Dialog.isNull(); }));
    EXPECT_EQ(Params().PrinterDevice, QStringLiteral("Other"));
    EXPECT_EQ(Params().PrinterType, 1);
    EXPECT_EQ(Params().PrinterOrientation, 2);
    EXPECT_EQ(Params().PrinterCopies, 2);
    EXPECT_EQ(Station.Session.Printers.Current().DeviceName(), QStringLiteral("Other"));
}

TEST_F(PrinterWindowTest, ClosingKeepsNothing)
{
    Open();
    SelectKind(QStringLiteral("FARGO"));
    Press("optOrientation(1)");
    Press("cmdCancel");
    EXPECT_TRUE(EventsUntil([&] { return Dialog.isNull(); }));
    EXPECT_EQ(Params().PrinterType, 9);
    EXPECT_EQ(Params().PrinterOrientation, 1);
}

TEST_F(PrinterWindowTest, EscapeCloses)
{
    Open();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(Dialog, &press);
    EXPECT_TRUE(EventsUntil([&] { return Dialog.isNull(); }));
}

TEST_F(PrinterWindowTest, AForcedResizeFitsTheDocument)
{
    Station.Session.Document.Width = 2222;
    Open();
    Press("chdForceResize");
    Press("optOrientation(1)");
    Press("cmdSave");
    EXPECT_EQ(Station.Session.Document.Width, 4860.0F);
}

TEST_F(PrinterWindowTest, SavingWithNothingSelectedEmptiesTheNameAndKeepsTheKind)
{
    Open();
    Press("cmdRefresh");
    KindList().clearSelection();
    Press("cmdSave");
    EXPECT_EQ(Params().PrinterDevice, QString());
    EXPECT_EQ(Params().PrinterType, 9);
}

TEST_F(PrinterWindowTest, ConfigureFollowsTheSelectedKind)
{
    AddPrinterKind(Station.Session, QStringLiteral("Thirty-three"), 33, 0, 0, 90);
    Open();
    auto& configure = Get<QPushButton>("cmdConfig");
    EXPECT_EQ(Get<QTimer>("tmrConfig").interval(), 200);
    EXPECT_FALSE(configure.isEnabled());
    SelectKind(QStringLiteral("Serialized"));
    EXPECT_TRUE(EventsUntil([&] { return configure.isEnabled(); }));
    SelectKind(QStringLiteral("Thirty-three"));
    EXPECT_TRUE(EventsUntil([&] { return !configure.isEnabled(); }));
}

TEST_F(PrinterWindowTest, ConfigureIsReadyAtOnceForASerializedLayout)
{
    Params().PrinterType = 3;
    Open();
    EXPECT_TRUE(Get<QPushButton>("cmdConfig").isEnabled());
}

TEST_F(PrinterWindowTest, PreferencesDoesNothing)
{
    Open();
    const LayoutParamsRecord before = Params();
    Press("Command1");
    QCoreApplication::processEvents();
    EXPECT_TRUE(Dialog->isVisible());
    EXPECT_EQ(Params().PrinterType, before.PrinterType);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(PrinterWindowTest, EventsRunAfterEveryRow)
{
    WithPrinters({First, QStringLiteral("Other")});
    const int before = Station.Operator.EventsRuns;
    Open();
    EXPECT_EQ(Station.Operator.EventsRuns - before, 1 + 8 + 2);
}

TEST_F(PrinterWindowTest, MayGoAwayWhileItIsFilled)
{
    for (int row = 0; row < 10; ++row) {
        Station.Operator.WhileEventsRun.clear();
        for (int i = 0; i < row; ++i)
            Station.Operator.WhileEventsRun.emplace_back([] {});
        Station.Operator.WhileEventsRun.emplace_back(
            [this] { delete Station.Window.findChild<frmPrinters2*>(); });
        OpenPrinterSelection(Station.Session, &Station.Window);
        EXPECT_EQ(Station.Window.findChild<frmPrinters2*>(), nullptr) << row;
        EXPECT_FALSE(Station.Operator.Pointer.back());
    }
}

TEST_F(PrinterWindowTest, CannotSaveBeforeItShowsTheLayoutsValues)
{
    bool enabled = true;
    Station.Operator.WhileEventsRun.emplace_back([&] {
        const auto& dialog = DesktopStation::Named<frmPrinters2>(Station.Window, "frmPrinters2");
        enabled = DesktopStation::Named<QPushButton>(dialog, "cmdSave").isEnabled();
    });
    Open();
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(Get<QPushButton>("cmdSave").isEnabled());
}

TEST_F(PrinterWindowTest, ASecondOpeningBringsTheSameDialogToTheFrontAsItStands)
{
    Open();
    const frmPrinters2* first = Dialog;
    Press("optOrientation(1)");
    Open();
    EXPECT_EQ(Dialog, first);
    EXPECT_TRUE(Get<QRadioButton>("optOrientation(1)").isChecked());
}

} // namespace vantrel::test
