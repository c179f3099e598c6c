#include "StationWithLedger.h"
#include "station/print/Reprint.h"

// Cards that failed before they were drawn have no page and no number yet. Printed again, they are
// made as new.

namespace vantrel::test {

class ReprintOfFailed : public StationWithLedger
{
protected:
    /// Changes the layouts as another program does.
    void Change(const QString& statement, const QVariantList& values = {})
    {
        Connection other;
        other.Open(StoreAt(Session.PathInFolder(QLatin1StringView(LayoutDatabaseName))));
        other.Database().Change(statement, values);
    }

    void SetPrinter(const QString& layout, const char* printer)
    {
        Change(QStringLiteral("UPDATE LayoutParams SET PrinterDevice = ? WHERE LayoutName = ?"),
               {QLatin1StringView(printer), layout});
        if (Session.CurrentLayoutName == layout)
            LoadFirstPage(Session, layout);
    }

    /// Prints the first entry again.
    LedgerEntry Reprint(ReprintMode mode = ReprintMode::Once)
    {
        Station.Printers.Operations.clear();
        const qlonglong id = AskReprint(Store(), 1, mode);
        TakeStoredRecords(Session);
        return Entry(id);
    }

    /// The record prints on two layouts, and the printer of the second one is missing.
    void ArriveForTwoLayouts()
    {
        BeginLayout(Session, QStringLiteral("Carrier"));
        AddField(Session, 1);
        AddNumber(Session, 70);
        SavePage(Session);
        SetPrinter(QStringLiteral("Carrier"), "Gone Printer");
        Change(QStringLiteral("INSERT INTO Macros (ID, MacroName) VALUES (1, 'Both')"));
        for (const QString& layout : {Name, QStringLiteral("Carrier")})
            Change(QStringLiteral("INSERT INTO MacroElements (MacroID, LayoutName) VALUES (1, ?)"),
                   {layout});
        CloseLayout(Session);
        Session.Settings.ActiveMacro = QStringLiteral("Both");
        Arrive("<Ada>");
    }
};

TEST_F(ReprintOfFailed, ShowsTheValuesAndTakesANumberWhereThePrinterWasMissing)
{
    SetPrinter(Name, "Gone Printer");
    Arrive("<Ada>");
    ASSERT_EQ(Entry(1).State, LedgerState::Failed);
    SetPrinter(Name, "Card Printer");
    EXPECT_FALSE(WasChangedSince(Session.LayoutDb, Entry(1)));
    const LedgerEntry again = Reprint();
    EXPECT_EQ(again.State, LedgerState::Printed);
    EXPECT_THAT(again.Cards.at(0).Numbers, testing::ElementsAre(QStringLiteral("1001")));
    EXPECT_THAT(Printed(), testing::ElementsAre(QStringLiteral("Print(\"Ada\")"),
                                                QStringLiteral("Print(\"1001\")")));
}

TEST_F(ReprintOfFailed, ShowsTheNumberOfTheReprintThatWasDrawnFirst)
{
    SetPrinter(Name, "Gone Printer");
    Arrive("<Ada>");
    Reprint();
    SetPrinter(Name, "Card Printer");
    EXPECT_THAT(Reprint().Cards.at(0).Numbers, testing::ElementsAre(QStringLiteral("1001")));
    const LedgerEntry again = Reprint(ReprintMode::Again);
    EXPECT_THAT(again.Cards.at(0).Numbers, testing::ElementsAre(QStringLiteral("1001")));
    EXPECT_THAT(StoredNumbers(Session, Name), testing::ElementsAre(QStringLiteral("1001")));
}

TEST_F(ReprintOfFailed, FailsAsLongAsThePrinterIsMissing)
{
    SetPrinter(Name, "Gone Printer");
    Arrive("<Ada>");
    const LedgerEntry again = Reprint();
    EXPECT_EQ(again.State, LedgerState::Failed);
    EXPECT_EQ(again.Reason, QStringLiteral("The printer Gone Printer is missing."));
    EXPECT_TRUE(Printed().isEmpty());
}

TEST_F(ReprintOfFailed, NeverGivesTheNumberOfAnotherCard)
{
    AddNumber(Session, 9007199254740992.0);
    SavePage(Session);
    Arrive("<Ada>");
    ASSERT_EQ(Entry(1).State, LedgerState::Failed);
    Change(QStringLiteral("DELETE FROM Controls WHERE C_Value LIKE '9%'"));
    LoadFirstPage(Session, Name);
    Arrive("<Bea>");
    ASSERT_THAT(Entry(2).Cards.at(0).Numbers, testing::ElementsAre(QStringLiteral("1001")));
    const LedgerEntry again = Reprint();
    EXPECT_THAT(again.Cards.at(0).Numbers, testing::ElementsAre(QStringLiteral("1002")));
}

TEST_F(ReprintOfFailed, MakesOnlyTheCardAsNewThatWasNotDrawn)
{
    ArriveForTwoLayouts();
    ASSERT_EQ(Entry(1).Cards.at(0).State, LedgerState::Printed);
    ASSERT_EQ(Entry(1).Cards.at(1).State, LedgerState::Failed);
    Arrive("<Bea>");
    SetPrinter(QStringLiteral("Carrier"), "Card Printer");
    const LedgerEntry again = Reprint();
    EXPECT_EQ(again.State, LedgerState::Printed);
    ASSERT_EQ(again.Cards.size(), 2U);
    EXPECT_THAT(again.Cards.at(0).Numbers, testing::ElementsAre(QStringLiteral("1001")));
    EXPECT_EQ(again.Cards.at(1).Layout, QStringLiteral("Carrier"));
    EXPECT_THAT(again.Cards.at(1).Numbers, testing::ElementsAre(QStringLiteral("71")));
    EXPECT_THAT(Printed(), testing::ElementsAre(
                               QStringLiteral("Print(\"Ada\")"), QStringLiteral("Print(\"1001\")"),
                               QStringLiteral("Print(\"Ada\")"), QStringLiteral("Print(\"71\")")));
    EXPECT_THAT(StoredNumbers(Session, Name), testing::ElementsAre(QStringLiteral("1002")));
}

TEST_F(ReprintOfFailed, FailsWithAReasonWhereThePageIsGone)
{
    ArriveForTwoLayouts();
    Change(QStringLiteral("DELETE FROM Controls WHERE LayoutName = 'Carrier'"));
    const LedgerEntry again = Reprint();
    EXPECT_EQ(again.State, LedgerState::Failed);
    EXPECT_EQ(again.Cards.at(0).State, LedgerState::Printed);
    EXPECT_EQ(again.Reason, QStringLiteral("The layout Carrier has no page 1 in the database."));
}

} // namespace vantrel::test
