#include "station/print/CardAsPrinted.h"
#include "card/FieldValues.h"
#include "card/ObjectExtras.h"
#include "ledger/LedgerRows.h"
#include "station/layout/PageDescription.h"
#include "support/Layouts.h"
#include "support/TestSession.h"
#include <QFile>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// One pixel is ten twips.
constexpr QSize Room{486, 306};

/// A stored page with a field, a number and a picture, and a card that was printed on it.
class CardOfPage : public ::testing::Test
{
protected:
    CardOfPage()
    {
        Station.WithDatabase();
        PicturePath = Station.WritePng(QStringLiteral("logo.png"), 40, 40, 0xffcc0000U);
        BeginLayout(Station.Session, QStringLiteral("Badge"));
        AddField(Station.Session, 1, {200, 200, 300, 1500});
        AddNumber(Station.Session, 1000, {800, 200, 300, 1500});
        AddImage(Station.Session, PicturePath, {1500, 3000, 900, 900});
        SavePage(Station.Session);
        Page = DescribePage(Station.Session.LayoutDb, QStringLiteral("Badge"), 1).Content;
        Card.Layout = QStringLiteral("Badge");
        Card.Numbers = {QStringLiteral("1007")};
        Values.Add(QStringLiteral("Ada"));
    }
    CardAsPrinted Draw() const { return DrawCardAsPrinted(Page, Values, Card, Pictures, Room); }

    TestSession Station;
    QString PicturePath;
    QString Page;
    LedgerCard Card;
    FieldValues Values;
    PictureSource Pictures;
};

int InkIn(const QImage& picture, const QRect& part)
{
    int ink = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            ink += qGray(picture.pixel(x, y)) < 128 ? 1 : 0;
    }
    return ink;
}

TEST_F(CardOfPage, ShowsATextThatShrankAsItWasPrinted)
{
    Values = {};
    Values.Add(QString(12, QLatin1Char('W')));
    const QRect beyond(200, 20, 286, 30);
    EXPECT_GT(InkIn(Draw().Picture, beyond), 20);
    SetShrinkTo(*Station.Session.Document.Find(Family::lbl_DATA, 1), 1);
    SavePage(Station.Session);
    Page = DescribePage(Station.Session.LayoutDb, QStringLiteral("Badge"), 1).Content;
    EXPECT_EQ(InkIn(Draw().Picture, beyond), 0);
    EXPECT_GT(InkIn(Draw().Picture, {20, 20, 150, 30}), 0);
}

TEST_F(CardOfPage, IsDrawnWithItsValueNumberAndPicture)
{
    const CardAsPrinted card = Draw();
    ASSERT_EQ(card.Picture.size(), Room);
    EXPECT_GT(InkIn(card.Picture, {20, 20, 150, 30}), 20);
    EXPECT_GT(InkIn(card.Picture, {20, 80, 150, 30}), 20);
    EXPECT_EQ(card.Picture.pixel(345, 195), 0xffcc0000U);
    EXPECT_TRUE(card.MissingPictures.isEmpty());
    ASSERT_EQ(card.Uses.size(), 1U);
    EXPECT_EQ(card.Uses[0].Value, 1);
    EXPECT_EQ(card.Uses[0].Object, QStringLiteral("Data Field 1"));
    EXPECT_EQ(card.Uses[0].Text, QStringLiteral("Ada"));
}

TEST_F(CardOfPage, IsDrawnWithTheNumberThatWasPrinted)
{
    const QRect number(20, 80, 150, 30);
    const QImage first = Draw().Picture.copy(number);
    EXPECT_EQ(Draw().Picture.copy(number), first);
    Card.Numbers = {QStringLiteral("9999")};
    EXPECT_NE(Draw().Picture.copy(number), first);
}

TEST_F(CardOfPage, StaysAsItWasWhenTheLayoutChanges)
{
    const QImage before = Draw().Picture;
    AddText(Station.Session, QStringLiteral("New"), {2000, 200, 300, 1500});
    SavePage(Station.Session);
    EXPECT_EQ(Draw().Picture, before);
}

TEST_F(CardOfPage, APictureThatIsGoneIsTold)
{
    ASSERT_TRUE(QFile::remove(PicturePath));
    const CardAsPrinted card = Draw();
    EXPECT_EQ(card.MissingPictures, QStringList(PicturePath));
    EXPECT_FALSE(card.Picture.isNull());
}

TEST_F(CardOfPage, WithoutItsPageNothingIsDrawn)
{
    Page.clear();
    EXPECT_TRUE(Draw().Picture.isNull());
    EXPECT_TRUE(Draw().Uses.empty());
}

} // namespace
} // namespace vantrel::test
