#include "station/commands/LayoutWizard.h"
#include "station/capture/Pipeline.h"
#include "station/commands/ClipCommands.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/NewLayout.h"
#include "station/layout/SaveLayout.h"
#include "station/print/PrintCard.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

const QString SendBox = QStringLiteral(
    "Send the data stream to Vantrel\u00ae 6|Now send the data stream to Ostrand Vantrel\u00ae 6, "
    "and the data will appear on the document!       \r\n"
    "After you are satisfied with the layout, you MUST save it!");

WizardAnswers TwoFields()
{
    WizardAnswers answers;
    answers.LayoutName = QStringLiteral("Pass");
    answers.DefaultFont = Font{QStringLiteral("Tahoma"), 12, true, false, false, false};
    answers.Orientation = OrientationLandscape;
    answers.PrinterName = QStringLiteral("Second");
    answers.PrinterKind = PrinterTypeCode::Eltron;
    answers.PrinterKindName = QStringLiteral("Two");
    answers.FieldCount = 2;
    return answers;
}

class WizardStation : public TestSession
{
public:
    WizardStation() : TestSession({QStringLiteral("First"), QStringLiteral("Second")})
    {
        WithDatabase();
    }
};

TEST(LayoutWizard, DrawsTheFieldsOneBelowTheOther)
{
    WizardStation station;
    BuildWizardLayout(station.Session, TwoFields());
    const CardDocument& document = station.Session.Document;
    ASSERT_EQ(document.HighestIndex(Family::lbl_DATA), 2);
    for (const int number : {1, 2}) {
        const CardObject& field = *document.Find(Family::lbl_DATA, number);
        EXPECT_EQ(field.Top, 320 * number);
        EXPECT_EQ(field.Left, 200);
        EXPECT_EQ(field.Height, 300);
        EXPECT_EQ(field.Width, 3000);
        EXPECT_EQ(field.BackColor, ColorWhite);
        EXPECT_EQ(field.DataField, QString::number(number));
        EXPECT_EQ(field.Font(), *TwoFields().DefaultFont);
    }
    EXPECT_TRUE(document.IsShown());
    EXPECT_EQ(document.DefaultFont, TwoFields().DefaultFont);
}

TEST(LayoutWizard, KeepsTheAnswersInTheSessionAndWritesTheParameters)
{
    WizardStation station;
    station.Session.CurrentParams.PageIndex = 7;
    station.Session.CurrentParams.PageCount = 9;
    station.Session.CurrentParams.PrinterCopies = 5;
    BuildWizardLayout(station.Session, TwoFields());
    const LayoutParamsRecord& params = station.Session.CurrentParams;
    EXPECT_EQ(station.Session.CurrentLayoutName, QStringLiteral("Pass"));
    EXPECT_EQ(params.PrinterDevice, QStringLiteral("Second"));
    EXPECT_EQ(params.PrinterOrientation, OrientationLandscape);
    EXPECT_EQ(params.PrinterType, PrinterTypeCode::Eltron);
    EXPECT_EQ(params.PageIndex, 1);
    EXPECT_EQ(params.PageCount, 1);
    EXPECT_EQ(params.PrinterCopies, 1);
    EXPECT_TRUE(params.AutoSpool);
    EXPECT_TRUE(station.Session.Face.IsTicked(Tick::chkAutoSpool));
    EXPECT_FALSE(station.Session.Settings.DynamicFields);

    Recordset rows(station.Session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [LayoutParams] WHERE [LayoutName] = 'Pass'"));
    ASSERT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.Value(QStringLiteral("PrinterDevice")).toString(), QStringLiteral("Second"));
    EXPECT_EQ(rows.Value(QStringLiteral("PrinterType")).toInt(), PrinterTypeCode::Eltron);
}

TEST(LayoutWizard, TheObjectsReachTheStoreThroughASaveOnly)
{
    WizardStation station;
    BuildWizardLayout(station.Session, TwoFields());
    Recordset rows(station.Session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [Controls]"));
    EXPECT_EQ(rows.RecordCount(), 0);
    SaveLayout(station.Session, SaveMessages::Silent);
    rows.Open(QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'Pass'"));
    EXPECT_EQ(rows.RecordCount(), 2);
}

TEST(LayoutWizard, AsksTheOperatorToSendDataWhileTheHourglassShows)
{
    WizardStation station;
    BuildWizardLayout(station.Session, TwoFields());
    EXPECT_EQ(station.Operator.Boxes, QStringList{SendBox});
    EXPECT_EQ(station.Operator.Pointer, (std::vector<bool>{true, false}));
    EXPECT_EQ(station.Operator.EventsRuns, 1);
}

TEST(LayoutWizard, WithDynamicFieldsNoFieldIsDrawnAndTheRecordMakesThem)
{
    WizardStation station;
    WizardAnswers answers = TwoFields();
    answers.DynamicFields = true;
    BuildWizardLayout(station.Session, answers);
    const CardDocument& document = station.Session.Document;
    EXPECT_EQ(document.HighestIndex(Family::lbl_DATA), 0);
    EXPECT_TRUE(station.Session.Settings.DynamicFields);
    station.Session.CurrentParams.AutoSpool = false;
    station.Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"),
                                        QStringLiteral(">")};
    ProcessStream(station.Session, QStringLiteral("<Anna+1001+Gold>"));
    EXPECT_EQ(document.HighestIndex(Family::lbl_DATA), 3);
    EXPECT_EQ(document.Find(Family::lbl_DATA, 3)->Caption(), QStringLiteral("Gold"));
}

TEST(LayoutWizard, ThePageIsSizedByTheParametersFromBefore)
{
    WizardStation station;
    station.Session.CurrentParams.PrinterType = PrinterTypeCode::Plain;
    station.Session.CurrentParams.PrinterOrientation = OrientationPortrait;
    BuildWizardLayout(station.Session, TwoFields());
    // A plain printer's page takes the orientation the parameters had, and the session then takes
    // it from the printer.
    EXPECT_EQ(station.Session.Document.Width, 3060);
    EXPECT_EQ(station.Session.CurrentParams.PrinterOrientation, OrientationPortrait);
}

TEST(LayoutWizard, APrinterTypeThatLeavesThePageAloneKeepsTheChosenOrientation)
{
    WizardStation station;
    station.Session.CurrentParams.PrinterType = PrinterTypeCode::Serialized;
    BuildWizardLayout(station.Session, TwoFields());
    EXPECT_EQ(station.Session.Document.Width, 4860);
    EXPECT_EQ(station.Session.CurrentParams.PrinterOrientation, OrientationLandscape);
}

TEST(LayoutWizard, AStepThatFailsIsPassedOver)
{
    WizardStation station;
    WizardAnswers answers = TwoFields();
    answers.PrinterName = QStringLiteral("Gone");
    answers.Orientation = 0;
    BuildWizardLayout(station.Session, answers);
    EXPECT_EQ(station.Session.CurrentParams.PrinterDevice, QStringLiteral("First"));
    EXPECT_EQ(station.Session.Document.HighestIndex(Family::lbl_DATA), 2);
    EXPECT_EQ(station.Operator.Boxes.size(), 1);
}

TEST(LayoutWizard, ALayoutClosedWhileItAsksForDataLeavesNoParametersWithoutALayout)
{
    WizardStation station;
    station.Operator.WhileAsked = [&] { CloseLayout(station.Session); };
    BuildWizardLayout(station.Session, TwoFields());
    Recordset rows(station.Session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [LayoutParams]"));
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_EQ(station.Session.CurrentLayoutName, QString());
    EXPECT_EQ(station.Operator.Pointer, (std::vector<bool>{true, false}));
}

TEST(LayoutWizard, ALayoutOfThatNameIsReplacedByTheSave)
{
    WizardStation station;
    BeginLayout(station.Session, QStringLiteral("Pass"));
    AddText(station.Session, QStringLiteral("Old"));
    SavePage(station.Session);
    BuildWizardLayout(station.Session, TwoFields());
    SaveLayout(station.Session, SaveMessages::Silent);
    ASSERT_TRUE(LoadLayout(station.Session, QStringLiteral("Pass")));
    EXPECT_EQ(station.Session.Document.HighestIndex(Family::lbl_TEXT), 0);
    EXPECT_EQ(station.Session.Document.HighestIndex(Family::lbl_DATA), 2);
}

TEST(LayoutWizard, ItsLayoutPrintsTheRecordOnceSaved)
{
    WizardStation station;
    WizardAnswers answers = TwoFields();
    answers.PrinterKind = PrinterTypeCode::Plain;
    BuildWizardLayout(station.Session, answers);
    SaveLayout(station.Session, SaveMessages::Silent);
    SetRecord(station.Session, {QStringLiteral("Anna"), QStringLiteral("1001")});
    station.Printers.Operations.clear();
    PrintCard(station.Session);
    EXPECT_EQ(station.Printers.Only({QStringLiteral("Print("), QStringLiteral("EndDoc")}),
              (QStringList{QStringLiteral("Print(\" \")"), QStringLiteral("Print(\"Anna\")"),
                           QStringLiteral("Print(\"1001\")"), QStringLiteral("EndDoc")}));
}

/// A stored layout of two pages in a plain font, a wizard's layout in a bold one beside it.
class WizardFont : public ::testing::Test
{
protected:
    WizardFont()
    {
        BeginLayout(Session, QStringLiteral("Badge"));
        AddText(Session, QStringLiteral("Front")).SetFont(Plain);
        SavePage(Session);
        BeginPage(Session, 2);
        AddText(Session, QStringLiteral("Back")).SetFont(Plain);
        SavePage(Session);
    }
    void RunWizard()
    {
        BuildWizardLayout(Session, TwoFields());
        SavePage(Session);
    }
    /// The font of the first text of a page of "Badge" after a record was printed on it.
    Font PrintedFont(std::int16_t page)
    {
        Session.CurrentParams.PageIndex = page;
        EXPECT_TRUE(LoadLayout(Session, QStringLiteral("Badge")));
        SavePage(Session);
        EXPECT_TRUE(LoadLayout(Session, QStringLiteral("Badge")));
        return Session.Document.Find(Family::lbl_TEXT, 1)->Font();
    }

    const Font Plain{QStringLiteral("Liberation Sans"), 9};
    const Font Bold = *TwoFields().DefaultFont;
    WizardStation Station;
    vantrel::Session& Session = Station.Session;
};

TEST_F(WizardFont, NeverReachesAnotherLayoutWithTheDesignTools)
{
    Session.Options.DesignTools = true;
    RunWizard();
    EXPECT_EQ(PrintedFont(1), Plain);
    EXPECT_EQ(PrintedFont(2), Plain);
    EXPECT_EQ(AddText(Session, QStringLiteral("New")).Font(), Font());
}

TEST_F(WizardFont, ReachesEveryTextThatIsLoadedWithoutTheDesignTools)
{
    RunWizard();
    EXPECT_EQ(PrintedFont(1), Bold);
    EXPECT_EQ(PrintedFont(2), Bold);
}

TEST_F(WizardFont, IsThatOfNewTextsOfItsOwnLayoutOnly)
{
    Session.Options.DesignTools = true;
    RunWizard();
    CardObject& own = AddText(Session, QStringLiteral("Own"));
    EXPECT_EQ(own.Font(), Bold);
    own.SetFont(Plain);
    SavePage(Session);
    // A record loads the page anew; a font that was chosen since then stays.
    ASSERT_TRUE(LoadLayout(Session, QStringLiteral("Pass")));
    EXPECT_EQ(Session.Document.Find(Family::lbl_TEXT, 1)->Font(), Plain);
    EXPECT_EQ(AddText(Session, QStringLiteral("Another")).Font(), Bold);
}

TEST_F(WizardFont, IsNotThatOfALayoutThatIsMadeNext)
{
    Session.Options.DesignTools = true;
    RunWizard();
    NewLayout(Session, QStringLiteral("Fresh"));
    EXPECT_EQ(AddText(Session, QStringLiteral("New")).Font(), Font());
    Station.Operator.Answers = {true};
    RunWizard();
    EXPECT_EQ(AddText(Session, QStringLiteral("New")).Font(), Bold);
    WizardAnswers plain = TwoFields();
    plain.LayoutName = QStringLiteral("Second");
    plain.DefaultFont.reset();
    BuildWizardLayout(Session, plain);
    EXPECT_EQ(AddText(Session, QStringLiteral("New")).Font(), Font());
}

TEST_F(WizardFont, APastedTextKeepsItsOwn)
{
    Session.Options.DesignTools = true;
    ASSERT_TRUE(LoadFirstPage(Session, QStringLiteral("Badge")));
    Session.Document.SelectedObject = Session.Document.Find(Family::lbl_TEXT, 1);
    const QByteArray copied = CopySelected(Session);
    RunWizard();
    PasteObjects(Session, copied);
    EXPECT_EQ(Session.Document.Find(Family::lbl_TEXT, 1)->Font(), Plain);
}

TEST(LayoutWizard, AsksBeforeItTakesANameWithTheDesignTools)
{
    WizardStation station;
    station.Session.Options.DesignTools = true;
    BuildWizardLayout(station.Session, TwoFields());
    SavePage(station.Session);
    EXPECT_EQ(station.Operator.AppMessages, QStringList());
    CloseLayout(station.Session);
    BuildWizardLayout(station.Session, TwoFields());
    ASSERT_EQ(station.Operator.AppMessages.size(), 1);
    EXPECT_EQ(station.Operator.AppMessages.last(),
              QStringLiteral("Replace Layout?|There is a layout (Pass) already. It has 1 page with "
                             "2 objects.\r\nBegin it anew, so that a save replaces its first "
                             "page?"));
    EXPECT_EQ(station.Operator.MessageButtons.back(), AppMessageButtons::NoYes);
    EXPECT_EQ(station.Session.CurrentLayoutName, QString());
    station.Operator.Answers = {true};
    BuildWizardLayout(station.Session, TwoFields());
    EXPECT_EQ(station.Session.CurrentLayoutName, QStringLiteral("Pass"));
}

TEST(LayoutWizard, PagesAskForTheirAnswers)
{
    WizardAnswers answers;
    EXPECT_EQ(IsPageComplete(WizardStep::Name, QStringLiteral("   "), answers), false);
    EXPECT_EQ(IsPageComplete(WizardStep::Name, QStringLiteral(" a "), answers), true);
    EXPECT_EQ(IsPageComplete(WizardStep::DefaultFont, {}, answers), true);
    EXPECT_EQ(IsPageComplete(WizardStep::Orientation, {}, answers), false);
    answers.Orientation = OrientationPortrait;
    EXPECT_EQ(IsPageComplete(WizardStep::Orientation, {}, answers), true);
    EXPECT_EQ(IsPageComplete(WizardStep::Printer, {}, answers), false);
    answers.PrinterName = QStringLiteral("Second");
    EXPECT_EQ(IsPageComplete(WizardStep::Printer, {}, answers), true);
    EXPECT_EQ(IsPageComplete(WizardStep::DataFields, {}, answers), std::nullopt);
    EXPECT_EQ(IsPageComplete(WizardStep::Summary, {}, answers), std::nullopt);
}

TEST(LayoutWizard, TheSummaryShowsTheAnswers)
{
    WizardAnswers answers = TwoFields();
    answers.DefaultFont->Size = 8.25;
    QStringList lines;
    for (const SummaryLine& line : SummaryOf(answers))
        lines += QLatin1StringView(line.Caption) + QStringLiteral(": ") + line.Value;
    EXPECT_EQ(lines, (QStringList{QStringLiteral("Card layout name: Pass"),
                                  QStringLiteral("Default font: Tahoma (8.25)"),
                                  QStringLiteral("Orientation: Landscape"),
                                  QStringLiteral("Card printer name: Second"),
                                  QStringLiteral("Card printer type: Two"),
                                  QStringLiteral("Number of data fields: 2")}));
    answers.DynamicFields = true;
    EXPECT_EQ(SummaryOf(answers).back().Value, QStringLiteral("Auto"));
}

TEST(LayoutWizard, ListsAtMostAHundredPrinters)
{
    QStringList names;
    for (int number = 1; number <= 130; ++number)
        names += QStringLiteral("Printer %1").arg(number);
    TestSession station(names);
    EXPECT_EQ(WizardPrinters(station.Session.Printers), names.mid(0, 100));
}

TEST(LayoutWizard, ListsAtMostNinetyNinePrinterTypes)
{
    WizardStation station;
    Recordset rows(station.Session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [PrinterTypes]"), CursorLock::Optimistic);
    for (int number = 1; number <= 120; ++number) {
        rows.AddNew();
        rows.SetValue(QStringLiteral("DeviceType"), number);
        rows.Update();
    }
    EXPECT_EQ(WizardPrinterKinds(station.Session.LayoutDb).size(), 99U);
}

TEST(LayoutWizard, ListsThePrinterTypesOfTheStore)
{
    WizardStation station;
    const auto kinds = WizardPrinterKinds(station.Session.LayoutDb);
    ASSERT_FALSE(kinds.empty());
    EXPECT_FALSE(kinds.front().Name.isEmpty());
    EXPECT_FALSE(kinds.front().DeviceType.isEmpty());
    TestSession withoutStore;
    EXPECT_TRUE(WizardPrinterKinds(withoutStore.Session.LayoutDb).empty());
}

} // namespace
} // namespace vantrel::test
