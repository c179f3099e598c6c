#include "station/print/PrinterSelection.h"
#include "station/layout/LoadLayout.h"
#include "station/session/Session.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include "support/PrinterKinds.h"
#include <gtest/gtest.h>

// What the printer selection lists, and what it saves into the open layout.

namespace vantrel::test {
namespace {

const QString First = QStringLiteral("First");
const QString Second = QStringLiteral("Second");

class PrinterSelectionTest : public ::testing::Test
{
protected:
    PrinterSelectionTest()
    {
        Station.WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"));
        AddText(Session, QStringLiteral("text"));
        SavePage(Session);
        Station.Printers.Operations.clear();
    }

    /// Whatever the layout keeps, as a choice that changes nothing.
    static PrinterChoice Unchanged()
    {
        PrinterChoice choice;
        choice.DeviceName = First;
        choice.KindTag = QStringLiteral("9");
        return choice;
    }

    QVariant Stored(const QString& column)
    {
        Recordset row(Session.LayoutDb);
        row.Open(QStringLiteral("SELECT * FROM [LayoutParams] WHERE [LayoutName] = 'Badge'"));
        return row.Value(column);
    }

    TestSession Station{QStringList{First, Second}};
    vantrel::Session& Session = Station.Session;
};

} // namespace

TEST_F(PrinterSelectionTest, ARunningPrinterIsActive)
{
    const PrinterListRow row = LookAtPrinter(Session.Printers, First);
    EXPECT_EQ(row.DeviceName, First);
    EXPECT_EQ(row.Key, QStringLiteral("TrueFirst"));
    EXPECT_EQ(row.Status, QStringLiteral("Active"));
    EXPECT_EQ(row.Jobs, QStringLiteral("0"));
    EXPECT_TRUE(row.AcceptsJobs);
}

TEST_F(PrinterSelectionTest, APausedPrinterIsPausedAndItsJobsAreCounted)
{
    Station.Printers.Spool[Second] = {true, false, 12};
    const PrinterListRow row = LookAtPrinter(Session.Printers, Second);
    EXPECT_EQ(row.Key, QStringLiteral("FalseSecond"));
    EXPECT_EQ(row.Status, QStringLiteral("Paused"));
    EXPECT_EQ(row.Jobs, QStringLiteral("12"));
    EXPECT_FALSE(row.AcceptsJobs);
}

TEST_F(PrinterSelectionTest, PrinterTypesAreListedInTheirDisplayOrder)
{
    const auto kinds = ReadPrinterKinds(Session.LayoutDb);
    QStringList tags;
    for (const PrinterKindRow& kind : kinds)
        tags.append(kind.Tag);
    EXPECT_EQ(tags.join(QLatin1Char(' ')), QStringLiteral("9 10 1 2 11 4 5 3"));
    EXPECT_EQ(kinds.front().ColorCapable, QStringLiteral("Driver Support"));
    EXPECT_EQ(kinds.back().ColorCapable, QStringLiteral("No"));
    EXPECT_EQ(kinds.back().DualSided, QStringLiteral("No"));
}

TEST_F(PrinterSelectionTest, ANullFlagIsShownAsNo)
{
    AddPrinterKind(Session, QStringLiteral("Nulls"), 77, QVariant(), 1, -2);
    AddPrinterKind(Session, QStringLiteral("Falses"), 78, 1, QVariant(), -1);
    const auto kinds = ReadPrinterKinds(Session.LayoutDb);
    ASSERT_EQ(kinds.size(), 10U);
    EXPECT_EQ(kinds[0].Name, QStringLiteral("Nulls"));
    EXPECT_EQ(kinds[0].ColorCapable, QStringLiteral("No"));
    EXPECT_EQ(kinds[0].DualSided, QStringLiteral("Driver Support"));
    EXPECT_EQ(kinds[1].ColorCapable, QStringLiteral("Driver Support"));
    EXPECT_EQ(kinds[1].DualSided, QStringLiteral("No"));
}

TEST_F(PrinterSelectionTest, ANullNameOrCodeIsAnEmptyText)
{
    AddPrinterKind(Session, QVariant(), QVariant(), 0, 0, -1);
    const auto kinds = ReadPrinterKinds(Session.LayoutDb);
    ASSERT_EQ(kinds.size(), 9U);
    EXPECT_EQ(kinds[0].Name, QString());
    EXPECT_EQ(kinds[0].Tag, QString());
}

TEST_F(PrinterSelectionTest, WithoutADatabaseThereAreNoPrinterTypesAndNothingFails)
{
    TestSession bare;
    EXPECT_TRUE(ReadPrinterKinds(bare.Session.LayoutDb).empty());
}

TEST_F(PrinterSelectionTest, OnlyTheSerializedTypeCanBeConfigured)
{
    EXPECT_TRUE(IsConfigurable(QStringLiteral("3")));
    for (const char* tag : {"", "1", "2", "4", "33", "3 ", "03", "-3"})
        EXPECT_FALSE(IsConfigurable(QLatin1StringView(tag))) << tag;
}

TEST_F(PrinterSelectionTest, AnUnknownOrientationShowsTheDefault)
{
    EXPECT_EQ(OptionOf(1), OrientationOption::Portrait);
    EXPECT_EQ(OptionOf(2), OrientationOption::Landscape);
    for (const std::int32_t orientation : {0, 3, -1, 2147483647})
        EXPECT_EQ(OptionOf(orientation), OrientationOption::Default);
}

TEST_F(PrinterSelectionTest, SavingMakesThePrinterCurrentAndStoresAllFourValues)
{
    PrinterChoice choice;
    choice.DeviceName = Second;
    choice.KindTag = QStringLiteral("11");
    choice.Orientation = OrientationOption::Landscape;
    choice.Copies = 3;
    SavePrinterChoice(Session, choice);
    EXPECT_EQ(Station.Printers.Operations, (QStringList{QStringLiteral("Printer = \"Second\""),
                                                        QStringLiteral("Orientation = 2")}));
    EXPECT_EQ(Stored(QStringLiteral("PrinterDevice")), Second);
    EXPECT_EQ(Stored(QStringLiteral("PrinterOrientation")), 2);
    EXPECT_EQ(Stored(QStringLiteral("PrinterType")), 11);
    EXPECT_EQ(Stored(QStringLiteral("PrinterCopies")), 3);
}

TEST_F(PrinterSelectionTest, LoadingTheLayoutRestoresTheSavedValues)
{
    PrinterChoice choice = Unchanged();
    choice.DeviceName = Second;
    choice.KindTag = QStringLiteral("1");
    choice.Orientation = OrientationOption::Landscape;
    choice.Copies = 2;
    SavePrinterChoice(Session, choice);
    BeginLayout(Session, QStringLiteral("Badge"));
    Station.Printers.MakeCurrent(First);
    LoadLayout(Session, QStringLiteral("Badge"));
    EXPECT_EQ(Session.CurrentParams.PrinterDevice, Second);
    EXPECT_EQ(Session.CurrentParams.PrinterOrientation, OrientationLandscape);
    EXPECT_EQ(Session.CurrentParams.PrinterType, 1);
    EXPECT_EQ(Session.CurrentParams.PrinterCopies, 2);
    EXPECT_EQ(Session.Printers.Current().DeviceName(), Second);
}

TEST_F(PrinterSelectionTest, TheDefaultOptionLeavesPrinterAndStoredOrientationAlone)
{
    for (const std::int32_t stored : {1, 2, 0, 7}) {
        Session.CurrentParams.PrinterOrientation = stored;
        Station.Printers.Operations.clear();
        SavePrinterChoice(Session, Unchanged());
        EXPECT_EQ(Station.Printers.Operations, QStringList(QStringLiteral("Printer = \"First\"")));
        EXPECT_EQ(Stored(QStringLiteral("PrinterOrientation")), stored);
    }
}

TEST_F(PrinterSelectionTest, WithoutAPrinterTheNameBecomesEmptyAndTheCurrentOneStays)
{
    PrinterChoice choice = Unchanged();
    choice.DeviceName.clear();
    SavePrinterChoice(Session, choice);
    EXPECT_TRUE(Station.Printers.Operations.isEmpty());
    EXPECT_EQ(Session.CurrentParams.PrinterDevice, QString());
    EXPECT_EQ(Stored(QStringLiteral("PrinterDevice")).toString(), QString());
}

TEST_F(PrinterSelectionTest, APrinterThatIsGoneIsStoredAllTheSame)
{
    PrinterChoice choice = Unchanged();
    choice.DeviceName = QStringLiteral("Gone");
    choice.Orientation = OrientationOption::Landscape;
    SavePrinterChoice(Session, choice);
    // The orientation goes to the printer that stayed current.
    EXPECT_EQ(Station.Printers.Operations, QStringList(QStringLiteral("Orientation = 2")));
    EXPECT_EQ(Stored(QStringLiteral("PrinterDevice")), QStringLiteral("Gone"));
}

TEST_F(PrinterSelectionTest, AnotherLetterCaseIsAnotherPrinter)
{
    PrinterChoice choice = Unchanged();
    choice.DeviceName = QStringLiteral("SECOND");
    SavePrinterChoice(Session, choice);
    EXPECT_TRUE(Station.Printers.Operations.isEmpty());
}

TEST_F(PrinterSelectionTest, WithoutAChosenTypeTheTypeStaysAndTheRestIsSaved)
{
    for (const char* tag : {"", "no number", "99999999999"}) {
        PrinterChoice choice = Unchanged();
        choice.KindTag = QLatin1StringView(tag);
        choice.Copies = 5;
        SavePrinterChoice(Session, choice);
        EXPECT_EQ(Session.CurrentParams.PrinterType, 9) << tag;
        EXPECT_EQ(Stored(QStringLiteral("PrinterCopies")), 5);
    }
}

TEST_F(PrinterSelectionTest, ACountBeyondSixteenBitsLeavesTheCopies)
{
    PrinterChoice choice = Unchanged();
    choice.Copies = 32767;
    SavePrinterChoice(Session, choice);
    EXPECT_EQ(Session.CurrentParams.PrinterCopies, 32767);
    choice.Copies = 32768;
    SavePrinterChoice(Session, choice);
    EXPECT_EQ(Session.CurrentParams.PrinterCopies, 32767);
}

TEST_F(PrinterSelectionTest, AForcedResizeGoesByTheFormerPrinterType)
{
    Session.CurrentParams.PrinterType = PrinterTypeCode::PlainFixedSize;
    PrinterChoice choice = Unchanged();
    choice.Orientation = OrientationOption::Landscape;
    choice.ForceResize = true;
    SavePrinterChoice(Session, choice);
    EXPECT_EQ(Session.Document.Width, 8000.0F);
    EXPECT_EQ(Session.CurrentParams.PrinterType, PrinterTypeCode::Plain);
    SavePrinterChoice(Session, choice);
    EXPECT_EQ(Session.Document.Width, 4860.0F);
    EXPECT_EQ(Session.Document.Height, 3060.0F);
}

TEST_F(PrinterSelectionTest, WithoutAForcedResizeTheDocumentKeepsItsSize)
{
    Session.Document.Width = 2345;
    PrinterChoice choice = Unchanged();
    choice.Orientation = OrientationOption::Landscape;
    SavePrinterChoice(Session, choice);
    EXPECT_EQ(Session.Document.Width, 2345.0F);
}

TEST_F(PrinterSelectionTest, APrinterThatRefusesItsOrientationStopsNothing)
{
    Station.Printers.Get(Second).Failing = {QStringLiteral("Orientation")};
    PrinterChoice choice = Unchanged();
    choice.DeviceName = Second;
    choice.Orientation = OrientationOption::Landscape;
    choice.ForceResize = true;
    choice.Copies = 4;
    SavePrinterChoice(Session, choice);
    EXPECT_EQ(Stored(QStringLiteral("PrinterOrientation")), 2);
    EXPECT_EQ(Stored(QStringLiteral("PrinterCopies")), 4);
}

TEST_F(PrinterSelectionTest, WithoutAStoreTheValuesStayInMemoryAndNothingFails)
{
    TestSession bare(QStringList{First});
    bare.Session.CurrentLayoutName = QStringLiteral("Badge");
    PrinterChoice choice = Unchanged();
    choice.Copies = 6;
    SavePrinterChoice(bare.Session, choice);
    EXPECT_EQ(bare.Session.CurrentParams.PrinterCopies, 6);
    EXPECT_EQ(bare.Session.CurrentParams.PrinterDevice, First);
}

} // namespace vantrel::test
