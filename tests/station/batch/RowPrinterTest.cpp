#include "BatchStation.h"
#include "station/macro/MacroChoice.h"
#include "station/macro/MacroTable.h"
#include "store/Recordset.h"

// Rows print by the rules of records, with the numbers that were taken for them.

namespace vantrel::test {

namespace {

class RowPrinting : public BatchStation
{
protected:
    void SetCopies(int copies)
    {
        ASSERT_TRUE(LoadFirstPage(Session, Name));
        Session.CurrentParams.PrinterCopies = static_cast<std::int16_t>(copies);
        SavePage(Session);
        Station.Printers.Operations.clear();
    }
};

} // namespace

TEST_F(RowPrinting, ARowIsACardWithItsValueAndItsNumber)
{
    const RowPlan plan = PlanOf(Target);
    Batch batch = RowsOf({QStringLiteral("Ada"), QStringLiteral("Bea")});
    TakeNumbersFor(batch, plan);
    const std::vector<RowResult> results = Print(batch, plan, Target);
    EXPECT_EQ(Printed(), QStringList({QStringLiteral("Ada"), QStringLiteral("1001"),
                                      QStringLiteral("Bea"), QStringLiteral("1002")}));
    ASSERT_EQ(results.size(), 2U);
    EXPECT_TRUE(results[0].IsPrinted() && results[1].IsPrinted());
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1002")}));
}

TEST_F(RowPrinting, NothingIsSavedIntoTheLayout)
{
    const RowPlan plan = PlanOf(Target);
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1000")}));
    Batch batch = RowsOf({QStringLiteral("Ada")});
    TakeNumbersFor(batch, plan);
    Print(batch, plan, Target);
    Recordset rows(Session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'Badge'"));
    for (; !rows.IsEof(); rows.MoveNext())
        EXPECT_NE(rows.Value(QStringLiteral("C_Value")).toString(), QStringLiteral("Ada"));
}

TEST_F(RowPrinting, APictureKeepsItsProportionsWhereItIsSetSo)
{
    ASSERT_TRUE(LoadFirstPage(Session, Name));
    AddImage(Session, Station.WritePng(QStringLiteral("ada.png"), 48, 64), {200, 300, 1000, 1000})
        .Fit = PictureFit::Filled;
    SavePage(Session);
    const RowPlan plan = PlanOf(Target);
    Batch batch = RowsOf({QStringLiteral("Ada")});
    TakeNumbersFor(batch, plan);
    Print(batch, plan, Target);
    EXPECT_EQ(
        Station.Printers.Only({QStringLiteral("Paint")}),
        QStringList{QStringLiteral("PaintFitted(48 x 64 pixels, filled, 300, 200, 1000, 1000)")});
}

TEST_F(RowPrinting, ALayoutThatDoesNotPrintByItselfPrintsRows)
{
    ASSERT_TRUE(LoadFirstPage(Session, Name));
    Session.CurrentParams.AutoSpool = false;
    SavePage(Session);
    const RowPlan plan = PlanOf(Target);
    Batch batch = RowsOf({QStringLiteral("Ada")});
    TakeNumbersFor(batch, plan);
    EXPECT_TRUE(Print(batch, plan, Target).at(0).IsPrinted());
}

TEST_F(RowPrinting, ThePlanHasEachPageOfEachCopyInTheOrderOfPrinting)
{
    WithSecondPage();
    SetCopies(2);
    const RowPlan plan = PlanOf(Target);
    QStringList cards;
    for (const PlannedCard& card : plan)
        cards.append(QStringLiteral("%1/%2/%3").arg(card.Page).arg(card.Copy).arg(card.Numbers));
    EXPECT_EQ(cards.join(u' '), QStringLiteral("1/1/1 2/1/1 1/2/1 2/2/1"));
    Batch batch = RowsOf({QStringLiteral("Ada"), QStringLiteral("Bea")});
    TakeNumbersFor(batch, plan);
    Print(batch, plan, Target);
    EXPECT_EQ(Printed().join(u' '),
              QStringLiteral("Ada 1001 71 Ada 1002 72 Bea 1003 73 Bea 1004 74"));
    EXPECT_EQ(NumbersOnCard(batch, plan, 1, 3), QStringList({QStringLiteral("74")}));
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1004"), QStringLiteral("74")}));
}

TEST_F(RowPrinting, AMacroPrintsEachRowOnItsLayouts)
{
    BeginLayout(Session, QStringLiteral("Receipt"));
    AddField(Session, 1);
    SavePage(Session);
    AddMacro(Session.LayoutDb, QStringLiteral("Both"));
    SaveActiveMacro(Session, {.Id = 1, .Name = QStringLiteral("Both")},
                    {Name, QStringLiteral("Receipt")});
    const BatchTarget macro{.Layout = {}, .Macro = QStringLiteral("Both")};
    const RowPlan plan = PlanOf(macro);
    Batch batch = RowsOf({QStringLiteral("Ada"), QStringLiteral("Bea")});
    TakeNumbersFor(batch, plan);
    const std::vector<RowResult> results = Print(batch, plan, macro);
    EXPECT_EQ(Printed().join(u' '), QStringLiteral("Ada 1001 Ada Bea 1002 Bea"));
    EXPECT_EQ(results.at(1).Cards.size(), 2U);
    EXPECT_TRUE(results.at(1).IsPrinted());
}

TEST_F(RowPrinting, AMissingLayoutOrMacroIsToldBeforeAnyRow)
{
    EXPECT_EQ(FailureTextOf(
                  [&] { RowPrinter(Session, {.Layout = QStringLiteral("Nope"), .Macro = {}}); }),
              QStringLiteral("There is no layout Nope."));
    EXPECT_EQ(FailureTextOf(
                  [&] { RowPrinter(Session, {.Layout = {}, .Macro = QStringLiteral("Nope")}); }),
              QStringLiteral("There is no macro Nope."));
}

TEST_F(RowPrinting, ALayoutThatPrintsNoCardIsToldBeforeAnyRow)
{
    SetCopies(0);
    EXPECT_EQ(FailureTextOf([&] { PlanOf(Target); }),
              QStringLiteral("Badge prints no card: look at its printer type and copies."));
}

TEST_F(RowPrinting, AJobThatFailsFailsItsRowOnly)
{
    const RowPlan plan = PlanOf(Target);
    Batch batch = RowsOf({QStringLiteral("Ada"), QStringLiteral("Bea"), QStringLiteral("Cid")});
    TakeNumbersFor(batch, plan);
    JobOutcome whole;
    whole.HandedOver = true;
    JobOutcome broken;
    broken.Reason = QStringLiteral("No space left on device");
    Station.Printers.Get(QStringLiteral("Card Printer")).Outcomes = {whole, broken, whole};
    const std::vector<RowResult> results = Print(batch, plan, Target);
    ASSERT_EQ(results.size(), 3U);
    EXPECT_TRUE(results[0].IsPrinted());
    EXPECT_EQ(results[1].Reason, broken.Reason);
    EXPECT_TRUE(results[2].IsPrinted());
}

TEST_F(RowPrinting, RowsThatAreNotBegunHaveNoResult)
{
    const RowPlan plan = PlanOf(Target);
    Batch batch = RowsOf({QStringLiteral("Ada"), QStringLiteral("Bea"), QStringLiteral("Cid")});
    TakeNumbersFor(batch, plan);
    EXPECT_EQ(Print(batch, plan, Target, 2).size(), 2U);
    EXPECT_EQ(Printed().size(), 4);
}

TEST_F(RowPrinting, ALayoutThatIsChangedMeanwhileFailsTheRow)
{
    const RowPlan plan = PlanOf(Target);
    Batch batch = RowsOf({QStringLiteral("Ada")});
    TakeNumbersFor(batch, plan);
    ASSERT_TRUE(LoadFirstPage(Session, Name));
    AddNumber(Session, 5);
    SavePage(Session);
    EXPECT_EQ(Print(batch, plan, Target).at(0).Reason,
              QStringLiteral("The layout was changed meanwhile."));
}

TEST_F(RowPrinting, ATrialShowsTheNextNumbersAndTakesNone)
{
    const RowPlan plan = PlanOf(Target);
    EXPECT_TRUE(Print(RowsOf({QStringLiteral("Ada")}), plan, Target).at(0).IsPrinted());
    EXPECT_EQ(Printed().join(u' '), QStringLiteral("Ada 1001"));
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1000")}));
}

TEST(Batch, ItsBytesHoldAllOfIt)
{
    Batch batch;
    batch.Rows.push_back({.Number = 7, .Line = 9, .Values = {QStringLiteral("Ada"), QString()}});
    batch.Columns = {QStringLiteral("name")};
    batch.Numbers.push_back(
        {.Layout = QStringLiteral("Badge"), .Page = 2, .CardsPerRow = 3, .First = {1001, 5}});
    batch.FirstFile = 12;
    const Batch read = BatchOf(BytesOf(batch));
    ASSERT_EQ(read.Rows.size(), 1U);
    EXPECT_EQ(read.Rows[0].Number, 7);
    EXPECT_EQ(read.Rows[0].Line, 9);
    EXPECT_EQ(read.Rows[0].Values, batch.Rows[0].Values);
    EXPECT_EQ(read.Columns, batch.Columns);
    ASSERT_EQ(read.Numbers.size(), 1U);
    EXPECT_EQ(read.Numbers[0].Layout, batch.Numbers[0].Layout);
    EXPECT_EQ(read.Numbers[0].Page, 2);
    EXPECT_EQ(read.Numbers[0].CardsPerRow, 3);
    EXPECT_EQ(read.Numbers[0].First, batch.Numbers[0].First);
    EXPECT_EQ(read.FirstFile, 12);

    RowResult result{.Number = 7, .Line = 9, .Cards = {}, .Reason = QStringLiteral("No")};
    result.Cards.push_back({.Job = {.HandedOver = true,
                                    .JobId = 4,
                                    .File = QStringLiteral("f"),
                                    .Reason = QStringLiteral("r")},
                            .Remark = QStringLiteral("m")});
    const std::vector<RowResult> results = ResultsOf(BytesOf(std::vector<RowResult>{result}));
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].Number, 7);
    EXPECT_EQ(results[0].Line, 9);
    EXPECT_EQ(results[0].Reason, result.Reason);
    ASSERT_EQ(results[0].Cards.size(), 1U);
    EXPECT_TRUE(results[0].Cards[0].Job.HandedOver);
    EXPECT_EQ(results[0].Cards[0].Job.JobId, 4);
    EXPECT_EQ(results[0].Cards[0].Job.File, QStringLiteral("f"));
    EXPECT_EQ(results[0].Cards[0].Job.Reason, QStringLiteral("r"));
    EXPECT_EQ(results[0].Cards[0].Remark, QStringLiteral("m"));
}

} // namespace vantrel::test
