#include "station/print/PrintCard.h"
#include "station/layout/LoadLayout.h"
#include "station/session/Session.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

// The walk over copies and pages, by kind of printer.

namespace vantrel::test {
namespace {

class PrintWalk : public ::testing::Test
{
protected:
    PrintWalk() { Station.WithDatabase(); }

    /// A layout of two pages, each with one text that names it.
    void MakeTwoPages(std::int32_t printerType, std::int16_t copies)
    {
        BeginLayout(Session, QStringLiteral("Card"), printerType);
        Session.CurrentParams.PrinterCopies = copies;
        AddText(Session, QStringLiteral("front"));
        SavePage(Session);
        BeginPage(Session, 2);
        AddText(Session, QStringLiteral("back"));
        SavePage(Session);
        Session.CurrentParams.PageIndex = 1;
        LoadLayout(Session, QStringLiteral("Card"));
        Station.Printers.Operations.clear();
    }

    QStringList Texts() const
    {
        QStringList texts = Station.Printers.Only({QStringLiteral("Print(")});
        texts.removeAll(QStringLiteral("Print(\" \")"));
        return texts;
    }

    TestSession Station{
        {QStringLiteral("First"), QStringLiteral("Card Printer"), QStringLiteral("Third")}};
    vantrel::Session& Session = Station.Session;
};

TEST_F(PrintWalk, CopiesAreCollated)
{
    MakeTwoPages(9, 2);
    PrintCard(Session);
    const QString front = QStringLiteral("Print(\"front\")");
    const QString back = QStringLiteral("Print(\"back\")");
    EXPECT_EQ(Texts(), QStringList({front, back, front, back}));
    EXPECT_EQ(Station.Printers.Operations.count(QStringLiteral("EndDoc")), 4);
}

TEST_F(PrintWalk, NoCopiesPrintNothingAndStillReloadTheDocument)
{
    MakeTwoPages(9, 0);
    Session.Document.Find(Family::lbl_TEXT, 1)->SetCaption(QStringLiteral("changed"));
    PrintCard(Session);
    EXPECT_FALSE(Station.Printers.Operations.contains(QStringLiteral("EndDoc")));
    EXPECT_EQ(Session.Document.Find(Family::lbl_TEXT, 1)->Caption(), QStringLiteral("front"));
}

TEST_F(PrintWalk, TheOpenPageIsOpenAgainAfterwards)
{
    MakeTwoPages(9, 1);
    Session.CurrentParams.PageIndex = 2;
    LoadLayout(Session, QStringLiteral("Card"));
    PrintCard(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(Session.Document.Find(Family::lbl_TEXT, 1)->Caption(), QStringLiteral("back"));
}

TEST_F(PrintWalk, TheHourglassShowsForTheLengthOfTheJob)
{
    MakeTwoPages(9, 1);
    PrintCard(Session);
    EXPECT_EQ(Station.Operator.Pointer, std::vector<bool>({true, false}));
}

struct TypeRow
{
    std::int32_t PrinterType;
    int Jobs;
    bool OrientationFirst;
    bool Draws;
};

// Jobs of one copy of a two-page layout.
constexpr TypeRow TypeTable[] = {{1, 2, true, true},    {2, 2, false, true},  {3, 1, false, false},
                                 {4, 2, false, true},   {5, 2, false, true},  {6, 0, false, false},
                                 {7, 0, false, false},  {8, 0, false, false}, {9, 2, false, true},
                                 {10, 2, false, true},  {11, 2, false, true}, {0, 0, false, false},
                                 {12, 0, false, false}, {-1, 0, false, false}};

class EachPrinterType : public PrintWalk, public ::testing::WithParamInterface<TypeRow>
{};

TEST_P(EachPrinterType, DecidesWhatACopyDoes)
{
    const TypeRow row = GetParam();
    MakeTwoPages(row.PrinterType, 1);
    PrintCard(Session);
    EXPECT_EQ(Station.Printers.Operations.count(QStringLiteral("EndDoc")), row.Jobs);
    EXPECT_EQ(Texts().contains(QStringLiteral("Print(\"front\")")), row.Draws);
    // Printing a page sets the orientation for one printer type only; the others get it at each
    // load.
    if (row.OrientationFirst) {
        const QStringList& all = Station.Printers.Operations;
        EXPECT_EQ(all.indexOf(QStringLiteral("Orientation = 1")), 1)
            << all.join(u'\n').toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(EveryKind, EachPrinterType, ::testing::ValuesIn(TypeTable));

TEST_F(PrintWalk, APrinterTypeThatPrintsNothingRaisesAndSavesNothing)
{
    BeginLayout(Session, QStringLiteral("Card"), 7);
    Session.CurrentParams.PrinterCopies = 3;
    AddNumber(Session, 41);
    SavePage(Session);
    PrintCard(Session);
    EXPECT_EQ(StoredNumbers(Session, QStringLiteral("Card")), QStringList({QStringLiteral("41")}));
}

TEST_F(PrintWalk, TheFirstPrinterOfExactlyThatNameGetsTheJob)
{
    MakeTwoPages(9, 1);
    Session.CurrentParams.PrinterDevice = QStringLiteral("Third");
    PrintCard(Session);
    EXPECT_EQ(Station.Printers.Operations.constFirst(), QStringLiteral("Printer = \"Third\""));
}

TEST_F(PrintWalk, APrinterThatIsNotInstalledLeavesTheCurrentOne)
{
    BeginLayout(Session, QStringLiteral("Card"));
    Session.CurrentParams.PrinterDevice = QStringLiteral("third");
    AddText(Session, QStringLiteral("front"));
    SavePage(Session);
    Station.Printers.MakeCurrent(QStringLiteral("Card Printer"));
    Station.Printers.Operations.clear();
    PrintCard(Session);
    EXPECT_TRUE(Station.Printers.Only({QStringLiteral("Printer =")}).isEmpty());
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("Print(\"front\")")}));
}

TEST_F(PrintWalk, EventsRunBetweenPagesOnlyWhileTheStationIsVisible)
{
    MakeTwoPages(9, 2);
    Session.Settings.MainVisible = false;
    PrintCard(Session);
    EXPECT_EQ(Station.Operator.EventsRuns, 0);
    Session.Settings.MainVisible = true;
    PrintCard(Session);
    EXPECT_EQ(Station.Operator.EventsRuns, 4);
}

TEST_F(PrintWalk, FieldsArePouredAnewIntoEveryPage)
{
    BeginLayout(Session, QStringLiteral("Card"));
    AddField(Session, 1);
    SavePage(Session);
    BeginPage(Session, 2);
    AddField(Session, 2);
    SavePage(Session);
    SetRecord(Session, {QStringLiteral("A"), QStringLiteral("B")});
    PrintCard(Session);
    EXPECT_EQ(Texts(),
              QStringList({QStringLiteral("Print(\"A\")"), QStringLiteral("Print(\"B\")")}));
}

} // namespace
} // namespace vantrel::test
