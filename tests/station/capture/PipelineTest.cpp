#include "StationWithLayout.h"

using namespace vantrel;
using namespace vantrel::test;

namespace {

class Pipeline : public StationWithLayout
{
protected:
    QString CaptionOf(int index)
    {
        return Session.Document.Find(Family::lbl_DATA, index)->Caption();
    }
};

} // namespace

TEST_F(Pipeline, RecordGoesToTheFieldsAndPrints)
{
    OpenLayout();
    Arrive("<A+B>");
    EXPECT_EQ(Values(), (QStringList{A, B}));
    EXPECT_EQ(CaptionOf(1), A);
    EXPECT_EQ(CaptionOf(2), B);
    EXPECT_EQ(Printed(), Prints({A, B}));
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
}

TEST_F(Pipeline, CharactersWaitUntilTheRecordIsComplete)
{
    OpenLayout();
    Arrive("<A");
    EXPECT_EQ(Session.InputBuffer.Text(), QStringLiteral("<A"));
    EXPECT_EQ(Session.LastRawData, QStringLiteral("<A"));
    EXPECT_EQ(Printed(), QStringList());
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QString());
    Arrive("+B>");
    EXPECT_EQ(Printed(), Prints({A, B}));
    EXPECT_EQ(Session.LastRawData, QStringLiteral("<A+B>"));
}

TEST_F(Pipeline, RawCopySharesTheTextAndALongRecordIsNotCopiedWithEachPiece)
{
    Arrive("<");
    int moves = 0;
    for (int piece = 0; piece < 4096; ++piece) {
        const QChar* before = Session.InputBuffer.Text().constData();
        Arrive("sixteen letters.");
        moves += Session.InputBuffer.Text().constData() != before ? 1 : 0;
        ASSERT_EQ(Session.LastRawData.constData(), Session.InputBuffer.Text().constData());
    }
    EXPECT_LT(moves, 100);
    Arrive(">");
    EXPECT_EQ(Session.FieldValues.Item(1).size(), 4096 * 16);
}

TEST_F(Pipeline, SecondRecordOfOneArrivalIsLost)
{
    OpenLayout();
    Arrive("<A+B><C+D>");
    EXPECT_EQ(Printed(), Prints({A, B}));
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
}

TEST_F(Pipeline, WithoutAutomaticPrintingTheValuesShowAndNothingPrints)
{
    OpenLayout();
    Session.CurrentParams.AutoSpool = false;
    Arrive("<A+B>");
    EXPECT_EQ(CaptionOf(1), A);
    EXPECT_EQ(CaptionOf(2), B);
    EXPECT_EQ(Printed(), QStringList());
}

TEST_F(Pipeline, RecordWithNoLayoutOpenIsKeptAndPrintsNothing)
{
    Session.CurrentParams.AutoSpool = true;
    Session.Settings.BufferData = true;
    Arrive("<A+B>");
    EXPECT_EQ(Values(), (QStringList{A, B}));
    EXPECT_EQ(Session.Face.Fields().Count(), 2);
    EXPECT_EQ(Session.RecordQueue.RecordCount, 1);
    EXPECT_EQ(Station.Printers.Operations, QStringList());
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (TCP/IP)"));
}

TEST_F(Pipeline, RecordThatCannotBeFramedPrintsAnEmptyCard)
{
    OpenLayout();
    Arrive("<A+B>");
    Station.Printers.Operations.clear();
    Arrive(">x<A+B");
    EXPECT_EQ(Values(), QStringList());
    EXPECT_EQ(Printed(), Prints({QStringLiteral("Data Field 1"), QStringLiteral("Data Field 2")}));
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
    EXPECT_EQ(Session.Face.Fields().Count(), 0);
}

TEST_F(Pipeline, RecordWithNothingInItPrintsAnEmptyCard)
{
    OpenLayout();
    Arrive("<>");
    EXPECT_EQ(Values(), QStringList());
    EXPECT_EQ(Printed(), Prints({QStringLiteral("Data Field 1"), QStringLiteral("Data Field 2")}));
}

TEST_F(Pipeline, MissingValuePrintsTheLastOneAgain)
{
    OpenLayout();
    Arrive("<A>");
    EXPECT_EQ(Printed(), Prints({A, A}));
}

TEST_F(Pipeline, ValuesOfTheLastRecordDoNotOutliveTheNext)
{
    OpenLayout();
    Arrive("<A+B>");
    Arrive("<C>");
    EXPECT_EQ(Values(), QStringList{C});
}

TEST_F(Pipeline, BufferIsEmptyEvenWhereThePrinterRefuses)
{
    OpenLayout();
    Station.Printers.Get(QStringLiteral("Card Printer")).Failing = {QStringLiteral("Print"),
                                                                    QStringLiteral("EndDoc")};
    Arrive("<A+B>");
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
    EXPECT_EQ(Printed(), QStringList());
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (TCP/IP)"));
}

TEST_F(Pipeline, ThePanelShowsTheSourceOfTheLastRecord)
{
    Arrive("<A>");
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (TCP/IP)"));
    EXPECT_EQ(Session.Face.StatusPanel(3).ToolTip,
              QStringLiteral("Data last received from (192.0.2.7)"));
}

TEST_F(Pipeline, RecordIsBegunWithNoValuesBeforeEventsRun)
{
    Arrive("<A+B");
    Arrive(">");
    QStringList steps;
    QObject::connect(&Session.Face, &StationFace::RecordBegun, &Session.Face, [&] {
        steps.append(QStringLiteral("begun with %1 values").arg(Session.FieldValues.Count()));
    });
    QObject::connect(&Session.Face, &StationFace::FieldsChanged, &Session.Face, [&] {
        steps.append(QStringLiteral("menu of %1").arg(Session.Face.Fields().Count()));
    });
    Station.Operator.WhileEventsRun = {[&] { steps.append(QStringLiteral("events")); },
                                       [&] { steps.append(QStringLiteral("events again")); }};
    Arrive("<C>");
    EXPECT_EQ(steps, (QStringList{QStringLiteral("begun with 0 values"), QStringLiteral("events"),
                                  QStringLiteral("menu of 1"), QStringLiteral("events again")}));
}

TEST_F(Pipeline, TextOfAnotherSourceTakesThePlaceOfTheBuffer)
{
    OpenLayout();
    Arrive("<half");
    ProcessStream(Session, QStringLiteral("<A+B>"));
    EXPECT_EQ(Printed(), Prints({A, B}));
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
    EXPECT_EQ(Session.LastRawData, QStringLiteral("<A+B>"));
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QString());
}

TEST_F(Pipeline, RecordsAreKeptOnlyWhereTheSettingSaysSo)
{
    Arrive("<A+B>");
    EXPECT_EQ(Session.RecordQueue.RecordCount, 0);
    Session.Settings.BufferData = true;
    Arrive("<A+B>");
    EXPECT_EQ(Session.RecordQueue.RecordCount, 1);
}

TEST_F(Pipeline, KeptRecordHoldsWhatStoodAroundTheDelimiters)
{
    OpenLayout();
    Session.Settings.BufferData = true;
    Arrive("x<A+B>y");
    EXPECT_EQ(Printed(), Prints({A, B}));
    ASSERT_EQ(Session.RecordQueue.BufferedRecords.size(), 1U);
    const VT5_BufferedRecord& kept = *Session.RecordQueue.BufferedRecords.front();
    ASSERT_EQ(kept.DataFields.Count(), 2);
    EXPECT_EQ(kept.DataFields.Item(1), QStringLiteral("xA"));
    EXPECT_EQ(kept.DataFields.Item(2), QStringLiteral("By"));
    EXPECT_EQ(kept.RawData, QStringLiteral("x<A+B>y"));
    // The text that is left for the raw view has lost them.
    EXPECT_EQ(Session.LastRawData, QStringLiteral("xA+By"));
}

TEST_F(Pipeline, CameraObjectAsksForAPictureWithEveryRecord)
{
    OpenLayout(true);
    Station.Operator.Answers = {true, false};
    Arrive("<A+B>");
    EXPECT_EQ(Station.Operator.CameraDialogsOpened, 1);
    Arrive("<C+D>");
    EXPECT_EQ(Station.Operator.CameraDialogsOpened, 1);
    const QString question = QStringLiteral("Take Picture|     Take Picture Now?           ");
    EXPECT_EQ(Station.Operator.Questions, (QStringList{question, question}));
}

TEST_F(Pipeline, CardPrintsWithoutTheNewPictureWhileTheDialogIsOpen)
{
    OpenLayout(true);
    Station.Operator.Answers = {true};
    Arrive("<A+B>");
    EXPECT_EQ(Station.Operator.CameraDialogsOpened, 1);
    EXPECT_EQ(Printed(), Prints({A, B}));
    EXPECT_EQ(Station.Printers.Only({QStringLiteral("PaintPicture")}), QStringList());
}

TEST_F(Pipeline, LayoutWithoutACameraObjectAsksNothing)
{
    OpenLayout();
    Arrive("<A+B>");
    EXPECT_EQ(Station.Operator.Questions, QStringList());
}

TEST_F(Pipeline, DynamicFieldsTakeTheRecordsOwnPositions)
{
    Session.Settings.DynamicFields = true;
    Arrive("<A++B>");
    ASSERT_EQ(Session.Document.HighestIndex(Family::lbl_DATA), 2);
    EXPECT_EQ(CaptionOf(1), A);
    EXPECT_EQ(CaptionOf(2), B);
    EXPECT_EQ(Session.Document.Find(Family::lbl_DATA, 2)->DataField, QStringLiteral("2"));
}

TEST_F(Pipeline, ValueThatFilteringEmptiedMakesNoDynamicField)
{
    Session.Settings.Filters.Tab = true;
    Session.Settings.DynamicFields = true;
    Arrive("<A+\t+B>");
    ASSERT_EQ(Session.Document.HighestIndex(Family::lbl_DATA), 2);
    EXPECT_EQ(Session.Document.Find(Family::lbl_DATA, 2)->DataField, QStringLiteral("3"));
    EXPECT_EQ(Session.Document.Find(Family::lbl_DATA, 2)->Top, 640.0F);
}

TEST_F(Pipeline, EachPageIsFilledWithTheSameValues)
{
    OpenLayout();
    Session.CurrentParams.PrinterCopies = 2;
    Session.CurrentParams.PageIndex = 1;
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), Prints({A, B, A, B}));
}
