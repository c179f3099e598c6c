#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "station/print/PrintCard.h"
#include "station/session/Session.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

// Automatic numbers through copies, pages and kinds of output.

namespace vantrel::test {
namespace {

class PrintNumbers : public ::testing::Test
{
protected:
    PrintNumbers()
    {
        Station.WithDatabase();
        BeginLayout(Session, QStringLiteral("Card"));
    }

    QStringList Texts() const
    {
        QStringList texts = Station.Printers.Only({QStringLiteral("Print(")});
        texts.removeAll(QStringLiteral("Print(\" \")"));
        return texts;
    }

    QStringList Stored() { return StoredNumbers(Session, QStringLiteral("Card")); }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

TEST_F(PrintNumbers, AStoredNumberPrintsOneHigherAndIsKeptSo)
{
    AddNumber(Session, 41);
    SavePage(Session);
    PrintCard(Session);
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("Print(\"42\")")}));
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("42")}));
}

TEST_F(PrintNumbers, TwoPagesAndTwoCopiesRaiseEachNumberTwice)
{
    Session.CurrentParams.PrinterCopies = 2;
    AddNumber(Session, 1);
    SavePage(Session);
    BeginPage(Session, 2);
    AddNumber(Session, 100);
    SavePage(Session);
    PrintCard(Session);
    EXPECT_EQ(Texts(),
              QStringList({QStringLiteral("Print(\"2\")"), QStringLiteral("Print(\"101\")"),
                           QStringLiteral("Print(\"3\")"), QStringLiteral("Print(\"102\")")}));
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("3"), QStringLiteral("102")}));
}

TEST_F(PrintNumbers, TheCheckDigitOfANumberLivesOnTheScreenOnly)
{
    AddNumber(Session, 5).DataMember = QStringLiteral("MOD10");
    SavePage(Session);
    ReapplyFieldValues(Session);
    EXPECT_EQ(Session.Document.Find(Family::lbl_AUTO, 1)->Caption(), QStringLiteral("55"));
    PrintCard(Session);
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("Print(\"6\")")}));
    EXPECT_EQ(Session.Document.Find(Family::lbl_AUTO, 1)->Caption(), QStringLiteral("62"));
}

TEST_F(PrintNumbers, ANumberIsDurablyStoredBeforeTheNextPagePrints)
{
    Session.CurrentParams.PrinterCopies = 2;
    AddNumber(Session, 1);
    SavePage(Session);
    Session.Settings.MainVisible = true;
    QStringList seen;
    // A second connection sees only what was committed.
    Connection other;
    other.Open(StoreAt(Session.PathInFolder(QStringLiteral("Vantrel.dat"))));
    const auto look = [&] {
        Recordset rows(other);
        rows.Open(QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'Card'"));
        seen.append(rows.Value(QStringLiteral("C_Value")).toString());
        seen.append(QString::number(Station.Printers.Operations.count(QStringLiteral("EndDoc"))));
    };
    Station.Operator.WhileEventsRun = {look, look};
    PrintCard(Session);
    EXPECT_EQ(seen, QStringList({QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("3"),
                                 QStringLiteral("2")}));
}

TEST_F(PrintNumbers, AFailedPrintHasRaisedTheNumberAllTheSame)
{
    AddNumber(Session, 7);
    SavePage(Session);
    Station.Printers.Get(QStringLiteral("Card Printer")).Failing = {QStringLiteral("Print"),
                                                                    QStringLiteral("EndDoc")};
    PrintCard(Session);
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("8")}));
}

TEST_F(PrintNumbers, SerializedOutputRaisesInMemoryOncePerOutput)
{
    Session.CurrentParams.PrinterType = 3;
    Session.CurrentParams.PrinterCopies = 2;
    AddNumber(Session, 10);
    SavePage(Session);
    BeginPage(Session, 2);
    AddNumber(Session, 20);
    SavePage(Session);
    Session.CurrentParams.PageIndex = 1;
    LoadLayout(Session, QStringLiteral("Card"));
    Station.Printers.Operations.clear();
    PrintCard(Session);
    EXPECT_EQ(Station.Printers.Operations.count(QStringLiteral("EndDoc")), 2);
    // The reload at the end brings the stored numbers back; page 2 was never raised.
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("10"), QStringLiteral("20")}));
    EXPECT_EQ(Session.Document.Find(Family::lbl_AUTO, 1)->DataField, QStringLiteral("10"));
}

} // namespace
} // namespace vantrel::test
