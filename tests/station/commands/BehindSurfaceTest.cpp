#include "BehindSurface.h"
#include "station/commands/Commands.h"
#include "station/compose/CardSequence.h"
#include "station/compose/DocumentGenerator.h"
#include "station/layout/DeleteLayout.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/NewLayout.h"
#include "station/layout/SaveLayout.h"
#include "support/WarningGuard.h"
#include <QFile>
#include <gmock/gmock.h>

// What prints while the operator designs, and what is unsaved on the surface meanwhile.

namespace vantrel::test {

TEST_F(BehindSurface, AThousandRecordsPrintAsStoredAndLeaveWhatIsUnsaved)
{
    const CardObject* selected = Session.Document.SelectedObject;
    for (int record = 0; record < 1000; ++record) {
        Arrive();
        ASSERT_EQ(TakePrinted(), Stored);
    }
    EXPECT_EQ(Surface(), Began);
    EXPECT_EQ(Session.Document.SelectedObject, selected);
    EXPECT_EQ(Session.FieldValues.Item(2), QStringLiteral("two"));
    UndoDesign(Session);
    UndoDesign(Session);
    EXPECT_FALSE(CanUndoDesign(Session));
    EXPECT_FALSE(IsPageUnsaved(Session));
    EXPECT_EQ(Text(1).Left, 200);
}

TEST_F(BehindSurface, AMacroClosesNothing)
{
    DefineMacro({QStringLiteral("A"), QStringLiteral("Gone"), Badge, QStringLiteral("C")});
    Session.Settings.ActiveMacro = QStringLiteral("Chain");
    Arrive();
    EXPECT_EQ(TakePrinted(), Stored + QStringList({QStringLiteral("A"), QStringLiteral("one")}) +
                                 Stored +
                                 QStringList({QStringLiteral("C"), QStringLiteral("one")}));
    EXPECT_EQ(Surface(), Began);
}

TEST_F(BehindSurface, TheDocumentGeneratorClosesNothing)
{
    AnnounceWarning(QStringLiteral("The layout Gone is not in the database"));
    PrintOnLayouts(Session, QStringLiteral("<one+two>"),
                   {QStringLiteral("B"), QStringLiteral("Gone"), QStringLiteral("A")});
    EXPECT_EQ(TakePrinted(), (QStringList{QStringLiteral("B"), QStringLiteral("one"),
                                          QStringLiteral("A"), QStringLiteral("one")}));
    EXPECT_EQ(Surface(), Began);
    // Another layout than the one with the changes needs no question.
    EXPECT_TRUE(Station.Operator.Questions.isEmpty());
}

TEST_F(BehindSurface, ARunOfNumbersPrintsAsStored)
{
    SequenceOrder order;
    order.Start = QStringLiteral("7");
    order.End = QStringLiteral("10");
    Station.Operator.BoxAnswers = {BoxAnswer::No};
    RunSequence(Session, order, [](double, double) { return true; });
    const QStringList printed = TakePrinted();
    EXPECT_EQ(printed.count(QStringLiteral("Visitor")), 3);
    EXPECT_TRUE(printed.contains(QStringLiteral("9")));
    EXPECT_FALSE(printed.contains(QStringLiteral("Draft")));
    EXPECT_EQ(Surface(), Began);
}

TEST_F(BehindSurface, PrintingByHandAsksAndLosesNothing)
{
    SetRecord(Session, {QStringLiteral("one"), QStringLiteral("two")});
    Station.Operator.BoxAnswers = {BoxAnswer::Cancel, BoxAnswer::No, BoxAnswer::Yes};
    PrintCommand(Session);
    EXPECT_EQ(TakePrinted(), QStringList());
    PrintCommand(Session);
    EXPECT_EQ(TakePrinted(), Stored);
    EXPECT_EQ(Surface(), Began);
    PrintCommand(Session);
    EXPECT_TRUE(TakePrinted().contains(QStringLiteral("Draft")));
    EXPECT_FALSE(IsPageUnsaved(Session));
    PrintCommand(Session);
    ASSERT_EQ(Station.Operator.Questions.size(), 3);
    EXPECT_EQ(Station.Operator.Questions.first(),
              QStringLiteral("Save Changes?|Page 1 of the layout (Badge) has changes that are not "
                             "saved. A card is printed as its layout was saved. Save them "
                             "before?"));
}

TEST_F(BehindSurface, CopiesAndPrinterAreThoseThatAreStored)
{
    Session.CurrentParams.PrinterCopies = 2;
    Session.CurrentParams.PrinterDevice = QStringLiteral("Paper Printer");
    Arrive();
    EXPECT_EQ(TakePrinted(), Stored);
    SavePage(Session);
    Text(1).Left = 901;
    Began = Surface();
    Arrive();
    EXPECT_THAT(Station.Printers.Operations, testing::Contains(QStringLiteral("EndDoc")).Times(4));
    EXPECT_THAT(Station.Printers.Operations,
                testing::Contains(QStringLiteral("Printer = \"Paper Printer\"")));
    EXPECT_EQ(Surface(), Began);
}

TEST_F(BehindSurface, APageThatWasNotSavedYetDoesNotPrint)
{
    SavePage(Session);
    NewPageCommand(Session);
    AddText(Session, QStringLiteral("Third"));
    NoteDesign(Session);
    Began = Surface();
    Arrive();
    EXPECT_EQ(TakePrinted(),
              Stored.mid(0, 2) + QStringList(QStringLiteral("Draft")) + Stored.mid(2));
    EXPECT_EQ(Surface(), Began);
    SavePage(Session);
    Arrive();
    EXPECT_TRUE(TakePrinted().contains(QStringLiteral("Third")));
}

TEST_F(BehindSurface, ALayoutThatWasNeverSavedSaysThatThereIsNothingToPrint)
{
    NewLayout(Session, QStringLiteral("Fresh"));
    AddText(Session, QStringLiteral("New"));
    NoteDesign(Session);
    Began = Surface();
    AnnounceWarning(QStringLiteral("not saved yet"));
    Arrive();
    PrintCommand(Session);
    EXPECT_EQ(TakePrinted(), QStringList());
    EXPECT_EQ(Surface(), Began);
    ASSERT_EQ(Station.Operator.AppMessages.size(), 1);
    EXPECT_EQ(Station.Operator.AppMessages.first(),
              QStringLiteral("Nothing to Print|The layout Fresh is not in the database: it was not "
                             "saved yet, or was deleted."));
    SavePage(Session);
    Arrive();
    EXPECT_EQ(TakePrinted(), QStringList(QStringLiteral("New")));
}

TEST_F(BehindSurface, NothingPrintsWhereNoLayoutIsOpenOrItDoesNotPrintByItself)
{
    Session.CurrentParams.AutoSpool = false;
    Arrive();
    EXPECT_EQ(TakePrinted(), Stored);
    SavePage(Session);
    Arrive();
    EXPECT_EQ(TakePrinted(), QStringList());
    CloseLayout(Session);
    Arrive();
    EXPECT_EQ(TakePrinted(), QStringList());
}

TEST_F(BehindSurface, ALayoutThatIsDeletedInTheMiddleOfItsCardPrintsNoFurtherPage)
{
    Session.Settings.MainVisible = true;
    Station.Operator.WhileEventsRun = {[] {}, [] {}, [&] { DeleteLayoutRows(Session, Badge); }};
    Arrive();
    EXPECT_EQ(TakePrinted(), Stored.mid(0, 2));
    EXPECT_TRUE(Session.CurrentLayoutName.isEmpty());
    Arrive();
    EXPECT_EQ(TakePrinted(), QStringList());
}

TEST_F(BehindSurface, ASaveInTheMiddleOfACardIsStoredAsItWas)
{
    Session.Settings.MainVisible = true;
    Station.Operator.WhileEventsRun = {[] {}, [] {}, [&] { SavePage(Session); }};
    Arrive();
    EXPECT_EQ(TakePrinted(), Stored);
    Arrive();
    EXPECT_TRUE(TakePrinted().contains(QStringLiteral("Draft")));
    ASSERT_TRUE(LoadLayout(Session, Badge));
    EXPECT_EQ(Text(1).Left, 900);
    EXPECT_EQ(Text(2).Caption(), QStringLiteral("Draft"));
}

TEST_F(BehindSurface, DesigningGoesOnInTheMiddleOfACard)
{
    Session.Settings.MainVisible = true;
    Station.Operator.WhileEventsRun = {[] {}, [] {},
                                       [&] {
                                           EXPECT_TRUE(Session.Road.IsBusy());
                                           Text(1).Left = 950;
                                           NoteDesign(Session);
                                           Text(1).Left = 960;
                                           NoteDesign(Session);
                                           UndoDesign(Session);
                                       }};
    Arrive();
    EXPECT_EQ(TakePrinted(), Stored);
    EXPECT_EQ(Text(1).Left, 950);
    UndoDesign(Session);
    EXPECT_EQ(Text(1).Left, 900);
}

TEST_F(BehindSurface, ARecordWithinARecordHasAPageOfItsOwn)
{
    Session.Settings.MainVisible = true;
    Station.Operator.WhileEventsRun = {[] {}, [] {},
                                       [&] {
                                           Station.Operator.BoxAnswers = {BoxAnswer::No};
                                           OpenLayout(Session, QStringLiteral("B"));
                                           Arrive();
                                       }};
    Arrive();
    EXPECT_EQ(TakePrinted(), Stored.mid(0, 2) +
                                 QStringList({QStringLiteral("B"), QStringLiteral("one")}) +
                                 Stored.mid(2));
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("B"));
}

TEST_F(BehindSurface, TheFieldsThatARecordMakesAreAStepOnTheSurface)
{
    Session.Settings.DynamicFields = true;
    Arrive();
    EXPECT_EQ(TakePrinted(), Stored);
    EXPECT_FALSE(Session.Settings.DynamicFields);
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_DATA), 3);
    EXPECT_EQ(Text(2).Caption(), QStringLiteral("Draft"));
    UndoDesign(Session);
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_DATA), 1);
    EXPECT_EQ(Text(2).Caption(), QStringLiteral("Draft"));
}

TEST_F(BehindSurface, ThePrinterOfTheSurfaceIsCurrentAgainBehindAMacroOnAnotherOne)
{
    OpenLayout(Session, QStringLiteral("B"));
    Session.CurrentParams.PrinterDevice = QStringLiteral("Paper Printer");
    Session.CurrentParams.PrinterOrientation = OrientationLandscape;
    SavePage(Session);
    OpenLayout(Session, Badge);
    Change();
    DefineMacro({QStringLiteral("B")});
    Session.Settings.ActiveMacro = QStringLiteral("Chain");
    Station.Printers.Operations.clear();
    Arrive();
    EXPECT_THAT(Station.Printers.Operations,
                testing::Contains(QStringLiteral("Printer = \"Paper Printer\"")));
    EXPECT_EQ(Surface(), Began);
}

TEST_F(BehindSurface, APictureIsAskedForWhereTheStoredPageHasACamera)
{
    Draw_CamView(Session.Document, {}, 0, Picture(), true, {});
    NoteDesign(Session);
    Arrive();
    EXPECT_TRUE(Station.Operator.Questions.isEmpty());
    SavePage(Session);
    Session.CameraImage = LoadPicture(Station.WritePng(QStringLiteral("face.png"), 20, 30));
    Station.Printers.Operations.clear();
    Arrive();
    EXPECT_EQ(Station.Operator.Questions.size(), 1);
    EXPECT_EQ(Station.Printers.Only({QStringLiteral("PaintFitted(20 x 30")}).size(), 1);
}

TEST_F(BehindSurface, AFileThatIsMissingForAWhileKeepsItsPlaceInTheStoredLayout)
{
    const QString path = Station.WritePng(QStringLiteral("logo.png"), 8, 8);
    AddImage(Session, path);
    SavePage(Session);
    ASSERT_TRUE(QFile::rename(path, path + QStringLiteral(".away")));
    Arrive();
    ASSERT_TRUE(QFile::rename(path + QStringLiteral(".away"), path));
    ASSERT_TRUE(LoadLayout(Session, Badge));
    EXPECT_EQ(Session.Document.Find(Family::img_LXV, 1)->Tag, path);
}

TEST_F(BehindSurface, WithoutTheOptionARecordTakesTheSurface)
{
    Session.Options.DesignTools = false;
    Arrive();
    EXPECT_EQ(TakePrinted(), Stored);
    EXPECT_EQ(Session.Document.Find(Family::lbl_TEXT, 2), nullptr);
    EXPECT_EQ(Text(1).Left, 200);
    EXPECT_EQ(Session.Document.Find(Family::lbl_DATA, 1)->Caption(), QStringLiteral("one"));
    DefineMacro({QStringLiteral("A")});
    Session.Settings.ActiveMacro = QStringLiteral("Chain");
    Arrive();
    EXPECT_TRUE(Session.CurrentLayoutName.isEmpty());
}

} // namespace vantrel::test
