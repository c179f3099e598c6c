#include "StationWithLedger.h"
#include "station/layout/PageDescription.h"
#include "station/print/CardAsPrinted.h"
#include "support/CodeReading.h"
#include "support/WarningGuard.h"

// Bar codes on the cards of a station that keeps a ledger.

namespace vantrel::test {

namespace {

class CodesInLedger : public StationWithLedger
{
protected:
    CodesInLedger()
    {
        const TextAt place{.Top = 1000, .Left = 100, .Height = 700, .Width = 2600};
        AddField(Session, 1, place).SetFont({QStringLiteral("Barcode EAN-13"), 10});
        SavePage(Session);
        LoadFirstPage(Session, Name);
    }

    QStringList Filled() const { return Station.Printers.Only({QStringLiteral("FillBoxes")}); }

    const QString Remark = QStringLiteral("Data Field 1: EAN-13: 12 or 13 digits are wanted.");
};

} // namespace

TEST_F(CodesInLedger, ACaptionThatACodeCannotHoldIsToldWithThePrintedCard)
{
    ASSERT_TRUE(Arrive("<4006381333931>"));
    EXPECT_EQ(Entry(1).Reason, QString());
    EXPECT_EQ(Entry(1).Cards.at(0).Reason, QString());
    EXPECT_EQ(Filled(), QStringList(QStringLiteral("FillBoxes(30)")));
    AnnounceWarning(QStringLiteral("A card of Badge: ") + Remark);
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_EQ(Entry(2).State, LedgerState::Printed);
    EXPECT_EQ(Entry(2).Cards.at(0).State, LedgerState::Printed);
    EXPECT_EQ(Entry(2).Cards.at(0).Reason, Remark);
    EXPECT_EQ(Filled().last(), QStringLiteral("FillBoxes(4)"));
    ASSERT_EQ(Answers.size(), 2);
    EXPECT_EQ(Answers[1], QStringLiteral("OK 2 1"));
}

TEST_F(CodesInLedger, AReprintShowsTheCodeOfItsOwnRecord)
{
    ASSERT_TRUE(Arrive("<4006381333931>"));
    const RecordingPrinter& printer = Station.Printers.Get(QStringLiteral("Card Printer"));
    const auto first = printer.LastBoxes;
    ASSERT_EQ(first.size(), 30U);
    ASSERT_TRUE(Arrive("<9780306406157>"));
    ASSERT_NE(printer.LastBoxes, first);
    AskReprint(Store(), 1, ReprintMode::Once);
    TakeStoredRecords(Session);
    EXPECT_EQ(Filled().size(), 3);
    EXPECT_EQ(printer.LastBoxes, first);
}

TEST_F(CodesInLedger, TheHistoryShowsTheCode)
{
    const QString page = DescribePage(Session.LayoutDb, Name, 1).Content;
    FieldValues values;
    values.Add(QStringLiteral("4006381333931"));
    const LedgerCard card;
    const auto drawn = DrawCardAsPrinted(page, values, card, Session.Pictures, {1020, 1620});
    const QImage code =
        drawn.Picture.copy(QRect(0, 300, 1020, 300)).convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(CodesByZxing(code), QStringList(QStringLiteral("4006381333931")));
    EXPECT_EQ(CodesByZbar(code), QStringList(QStringLiteral("4006381333931")));
}

} // namespace vantrel::test
