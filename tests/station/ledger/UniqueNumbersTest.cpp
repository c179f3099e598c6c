#include "StationWithLedger.h"
#include "station/layout/SaveLayout.h"

// Automatic numbers that are given at most once.

namespace vantrel::test {

namespace {

/// A further session of the same program folder.
struct SecondSession
{
    explicit SecondSession(vantrel::Session& first)
        : Printers({QStringLiteral("Card Printer")}),
          Session(first.ProgramFolder, Operator, Printers)
    {
        Session.SessionNumber = 2;
        Session.Settings.Framing = first.Settings.Framing;
        Session.Options = first.Options;
        Session.LayoutDb.Open(StoreAt(first.PathInFolder(QLatin1StringView(LayoutDatabaseName))));
        OpenLedger(Session);
        LoadFirstPage(Session, first.CurrentLayoutName);
    }

    TestOperator Operator;
    RecordingPrinters Printers;
    vantrel::Session Session;
};

} // namespace

TEST_F(StationWithLedger, ANumberAndItsCardAreStoredBeforeTheJobEnds)
{
    RecordingPrinter& printer = Station.Printers.Get(QStringLiteral("Card Printer"));
    printer.TellsLater = true;
    Arrive("<Ada>");
    SecondSession second(Session);
    EXPECT_THAT(StoredNumbers(second.Session, Name), testing::ElementsAre(QStringLiteral("1001")));
    const LedgerEntry begun = FindEntry(second.Session.LayoutDb.Database(), 1).value();
    EXPECT_EQ(begun.State, LedgerState::Printing);
    EXPECT_EQ(begun.Cards.at(0).Numbers, QStringList(QStringLiteral("1001")));
    EXPECT_TRUE(Answers.isEmpty());
    printer.TellOutcomes();
    EXPECT_EQ(Entry(1).State, LedgerState::Printed);
    EXPECT_THAT(Answers, testing::ElementsAre(QStringLiteral("OK 1 1")));
}

TEST_F(StationWithLedger, TwoSessionsGiveEachNumberOnce)
{
    SecondSession second(Session);
    Arrive("<Ada>");
    TakeRecord(second.Session, QStringLiteral("<Bea>"), {});
    Arrive("<Cem>");
    QStringList numbers;
    ReadEntries(Store(), {}, [&](const LedgerEntry& entry) {
        numbers.prepend(entry.Cards.at(0).Numbers.join(u','));
    });
    EXPECT_THAT(numbers, testing::ElementsAre(QStringLiteral("1001"), QStringLiteral("1002"),
                                              QStringLiteral("1003")));
}

TEST_F(StationWithLedger, SavingAPageThatWasLoadedEarlierDoesNotLowerItsNumber)
{
    SecondSession second(Session);
    Arrive("<Ada>");
    Arrive("<Bea>");
    AddText(second.Session, QStringLiteral("Member"));
    ASSERT_TRUE(SaveLayout(second.Session, SaveMessages::Silent));
    EXPECT_THAT(StoredNumbers(Session, Name), testing::ElementsAre(QStringLiteral("1002")));
}

TEST_F(StationWithLedger, ANumberKeepsItsHeightWhenAnObjectBeforeItIsDeleted)
{
    SecondSession second(Session);
    Arrive("<Ada>");
    CardObject* field = second.Session.Document.Find(Family::lbl_DATA, 1);
    ASSERT_NE(field, nullptr);
    second.Session.Document.Remove(*field);
    ASSERT_TRUE(SaveLayout(second.Session, SaveMessages::Silent));
    EXPECT_THAT(StoredNumbers(Session, Name), testing::ElementsAre(QStringLiteral("1001")));
    Arrive("<Bea>");
    EXPECT_EQ(Entry(2).Cards.at(0).Numbers, QStringList(QStringLiteral("1002")));
}

TEST_F(StationWithLedger, WithoutTheKeyASavedPageWritesTheNumberItShows)
{
    Session.Options.UniqueNumbers = false;
    SecondSession second(Session);
    Arrive("<Ada>");
    ASSERT_TRUE(SaveLayout(second.Session, SaveMessages::Silent));
    EXPECT_THAT(StoredNumbers(Session, Name), testing::ElementsAre(QStringLiteral("1000")));
}

TEST_F(StationWithLedger, SeveralNumbersOfAPageRiseEachForItself)
{
    AddNumber(Session, 5);
    SavePage(Session);
    Arrive("<Ada>");
    EXPECT_EQ(Entry(1).Cards.at(0).Numbers,
              QStringList({QStringLiteral("1001"), QStringLiteral("6")}));
    EXPECT_THAT(Printed(), testing::Contains(QStringLiteral("Print(\"6\")")));
}

TEST_F(StationWithLedger, ANumberThatCannotRiseFailsItsCard)
{
    AddNumber(Session, 9007199254740992.0);
    SavePage(Session);
    Arrive("<Ada>");
    EXPECT_EQ(Entry(1).State, LedgerState::Failed);
    EXPECT_TRUE(Printed().isEmpty());
}

TEST_F(StationWithLedger, ACardThatTookNoNumberHasNoneInTheLedger)
{
    AddNumber(Session, 9007199254740992.0);
    SavePage(Session);
    Arrive("<Ada>");
    EXPECT_THAT(Entry(1).Cards.at(0).Numbers, testing::IsEmpty());
    EXPECT_EQ(StoredNumbers(Session, Name).at(0), QStringLiteral("1000"));
}

TEST_F(StationWithLedger, SerializedOutputTakesItsNumberFromTheStore)
{
    Session.CurrentParams.PrinterType = 3;
    SavePage(Session);
    LoadFirstPage(Session, Name);
    Arrive("<Ada>");
    Arrive("<Bea>");
    EXPECT_THAT(StoredNumbers(Session, Name), testing::ElementsAre(QStringLiteral("1002")));
    EXPECT_EQ(Entry(2).Cards.at(0).Numbers, QStringList(QStringLiteral("1002")));
}

} // namespace vantrel::test
