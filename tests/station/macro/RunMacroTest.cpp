#include "MacroStation.h"
#include "station/layout/DocumentForm.h"
#include "station/session/MainRuntime.h"
#include "support/Trace.h"

// One record on a chain of layouts.

namespace vantrel::test {

TEST_F(MacroStation, TheChainPrintsInTheOrderOfItsRows)
{
    DefineMacro(Macro, {QStringLiteral("C"), QStringLiteral("A"), QStringLiteral("B")});
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(),
              Cards({QStringLiteral("C one"), QStringLiteral("A one"), QStringLiteral("B one")}));
}

TEST_F(MacroStation, OnlyTheRowsOfTheNamedMacroPrint)
{
    DefineMacro(QStringLiteral("Other"), {QStringLiteral("A"), QStringLiteral("B")});
    DefineMacro(Macro, {QStringLiteral("B")});
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(), Cards({QStringLiteral("B one")}));
}

TEST_F(MacroStation, TwoMacrosMayShareALayout)
{
    DefineMacro(QStringLiteral("Other"), {QStringLiteral("A")});
    DefineMacro(Macro, {QStringLiteral("A")});
    RunMacro(Session, QStringLiteral("Other"));
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A one"), QStringLiteral("A one")}));
}

TEST_F(MacroStation, TheAutomaticPrintingOfALayoutHasNoInfluence)
{
    DefineMacro(Macro, {QStringLiteral("Manual"), QStringLiteral("A")});
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(), Cards({QStringLiteral("Manual one"), QStringLiteral("A one")}));
}

TEST_F(MacroStation, NoLayoutIsOpenAfterTheChain)
{
    DefineMacro(Macro, {QStringLiteral("A"), QStringLiteral("B")});
    ASSERT_TRUE(LoadLayout(Session, QStringLiteral("C")));
    RunMacro(Session, Macro);
    EXPECT_EQ(Session.CurrentLayoutName, QString());
    EXPECT_FALSE(Session.CurrentParams.LayoutOpen);
    EXPECT_FALSE(Session.CurrentParams.AutoSpool);
    EXPECT_EQ(Session.CurrentParams.PrinterType, PrinterTypeCode::Plain);
    EXPECT_TRUE(Session.Document.Objects().empty());
    EXPECT_EQ(Session.Face.Caption(), PlainCaption());
}

TEST_F(MacroStation, EachLayoutIsClosedBeforeTheNextOneOpens)
{
    DefineMacro(Macro, {QStringLiteral("A"), QStringLiteral("B")});
    QStringList captions;
    QObject::connect(&Session.Face, &StationFace::CaptionChanged, &Session.Face,
                     [&] { captions.append(Session.Face.Caption()); });
    RunMacro(Session, Macro);
    captions.removeDuplicates();
    ASSERT_EQ(captions.size(), 3);
    EXPECT_TRUE(captions[0].contains(QStringLiteral("(A)")));
    EXPECT_EQ(captions[1], PlainCaption());
    EXPECT_TRUE(captions[2].contains(QStringLiteral("(B)")));
}

TEST_F(MacroStation, EachLayoutPrintsItsPagesAndCopies)
{
    BeginCard(QStringLiteral("Two"));
    Session.CurrentParams.PrinterCopies = 2;
    SavePage(Session);
    BeginPage(Session, 2);
    AddText(Session, QStringLiteral("behind"));
    SavePage(Session);
    CloseLayout(Session);
    Station.Printers.Operations.clear();
    DefineMacro(Macro, {QStringLiteral("Two"), QStringLiteral("A")});
    RunMacro(Session, Macro);
    const QString behind = QStringLiteral("Print(\"behind\")");
    const QStringList card = Cards({QStringLiteral("Two one")}) + QStringList(behind);
    EXPECT_EQ(Printed(), card + card + Cards({QStringLiteral("A one")}));
}

TEST_F(MacroStation, TheFirstLayoutGoesByItsOwnPrinterWhateverPageWasOpen)
{
    BeginCard(QStringLiteral("Two"));
    Session.CurrentParams.PrinterCopies = 3;
    SavePage(Session);
    BeginPage(Session, 2);
    AddText(Session, QStringLiteral("behind"));
    SavePage(Session);
    Station.Printers.Operations.clear();
    DefineMacro(Macro, {QStringLiteral("A"), QStringLiteral("B")});
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A one"), QStringLiteral("B one")}));
}

TEST_F(MacroStation, AnUnknownNamePrintsNothingAndClosesNothing)
{
    DefineMacro(Macro, {QStringLiteral("A")});
    ASSERT_TRUE(LoadLayout(Session, QStringLiteral("C")));
    Station.Printers.Operations.clear();
    RunMacro(Session, QStringLiteral("No such"));
    EXPECT_EQ(Printed(), QStringList());
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("C"));
}

TEST_F(MacroStation, AMacroNameWithAnApostrophePrintsNothing)
{
    const QString name = QStringLiteral("Fred's");
    DefineMacro(name, {QStringLiteral("A")});
    RunMacro(Session, name);
    EXPECT_EQ(Printed(), QStringList());
}

TEST_F(MacroStation, AMacroWithoutRowsPrintsNothingAndClosesNothing)
{
    DefineMacro(Macro, {});
    ASSERT_TRUE(LoadLayout(Session, QStringLiteral("C")));
    Station.Printers.Operations.clear();
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(), QStringList());
    EXPECT_TRUE(Session.CurrentParams.LayoutOpen);
}

TEST_F(MacroStation, ALayoutThatIsGonePrintsNothingAnywhereInTheChain)
{
    const QString gone = QStringLiteral("Gone");
    DefineMacro(Macro, {gone, QStringLiteral("A"), gone, gone, QStringLiteral("B"), gone});
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A one"), QStringLiteral("B one")}));
    EXPECT_TRUE(Station.Operator.AppMessages.isEmpty());
    EXPECT_TRUE(Station.Operator.CriticalBoxes.isEmpty());
}

TEST_F(MacroStation, ALayoutThatIsGoneClosesTheOneThatWasOpen)
{
    DefineMacro(Macro, {QStringLiteral("Gone")});
    ASSERT_TRUE(LoadLayout(Session, QStringLiteral("C")));
    Station.Printers.Operations.clear();
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(), QStringList());
    EXPECT_EQ(Session.CurrentLayoutName, QString());
    EXPECT_FALSE(Session.CurrentParams.LayoutOpen);
}

TEST_F(MacroStation, ALayoutNameWithAnApostrophePrintsNothing)
{
    DefineMacro(Macro, {QStringLiteral("Fred's"), QStringLiteral("B")});
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(), Cards({QStringLiteral("B one")}));
}

TEST_F(MacroStation, ARowWithoutANameRepeatsTheOneBefore)
{
    DefineMacro(Macro, {QStringLiteral("A"), QString(), QStringLiteral("B")});
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(),
              Cards({QStringLiteral("A one"), QStringLiteral("A one"), QStringLiteral("B one")}));
}

TEST_F(MacroStation, APrinterThatRefusesDoesNotStopTheChain)
{
    DefineMacro(Macro, {QStringLiteral("A"), QStringLiteral("B")});
    Station.Printers.Get(QStringLiteral("Card Printer")).Failing = {
        QStringLiteral("Print(\"A\")"), QStringLiteral("Print(\"one\")"), QStringLiteral("EndDoc")};
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(), QStringList(QStringLiteral("Print(\"B\")")));
}

TEST_F(MacroStation, NumbersOfTheChainRiseInTheStore)
{
    BeginCard(QStringLiteral("Numbered"));
    AddNumber(Session, 41);
    SavePage(Session);
    CloseLayout(Session);
    DefineMacro(Macro, {QStringLiteral("Numbered")});
    RunMacro(Session, Macro);
    RunMacro(Session, Macro);
    EXPECT_EQ(StoredNumbers(Session, QStringLiteral("Numbered")).size(), 1);
    EXPECT_EQ(StoredNumbers(Session, QStringLiteral("Numbered")).constFirst(),
              QStringLiteral("43"));
}

TEST_F(MacroStation, NoPictureIsAskedForInAChain)
{
    BeginCard(QStringLiteral("Camera"));
    Draw_CamView(OpenForm(Session), {}, 0, Picture(), true, {});
    SavePage(Session);
    CloseLayout(Session);
    DefineMacro(Macro, {QStringLiteral("Camera")});
    RunMacro(Session, Macro);
    EXPECT_TRUE(Station.Operator.Questions.isEmpty());
}

TEST_F(MacroStation, AChainOfTwentyLayoutsPrintsThemAll)
{
    QStringList layouts;
    QStringList cards;
    for (int i = 1; i <= 20; ++i) {
        layouts.append(QStringLiteral("Layout %1").arg(i));
        cards.append(layouts.constLast() + QStringLiteral(" one"));
        BeginCard(layouts.constLast());
        SavePage(Session);
    }
    CloseLayout(Session);
    Station.Printers.Operations.clear();
    DefineMacro(Macro, layouts);
    RunMacro(Session, Macro);
    EXPECT_EQ(Printed(), Cards(cards));
    EXPECT_EQ(Station.Printers.Operations.count(QStringLiteral("EndDoc")), 20);
}

TEST_F(MacroStation, TheTraceLogsEachLayoutOnlyWhereItIsTurnedOn)
{
    DefineMacro(Macro, {QStringLiteral("B"), QStringLiteral("Gone")});
    const auto run = [this] { RunMacro(Session, Macro); };
    EXPECT_EQ(UntracedOf("vantrel.macro", run), QStringList());
    EXPECT_EQ(TraceOf("vantrel.macro", run),
              QStringList({QStringLiteral("Macro Engine Layout = B"),
                           QStringLiteral("Macro Engine Layout = Gone")}));
}

} // namespace vantrel::test
