#include "station/layout/LayoutCheck.h"
#include "card/CardDocument.h"
#include "card/ObjectExtras.h"
#include "support/Layouts.h"
#include <QFile>
#include <gtest/gtest.h>

// The check of all pages of a layout.

namespace vantrel::test {
namespace {

const QString Name = QStringLiteral("Badge");
const QString LongName = QStringLiteral("Bartholomew Featherstone");

/// A stored layout of two pages with a field each, which is too small for a long name.
class LayoutCheck : public ::testing::Test
{
protected:
    LayoutCheck()
    {
        Station.WithDatabase();
        BeginLayout(Session, Name);
        AddField(Session, 1).SetFont(Letters);
        AddNumber(Session, 9, {900, 200, 300, 1500}).SetFont(Letters);
        SavePage(Session);
        BeginPage(Session, 2);
        AddField(Session, 1).SetFont(Letters);
        SavePage(Session);
    }

    QStringList Told(const QStringList& record, const PageInMemory* inMemory = nullptr)
    {
        CheckedLayout layout{.LayoutDb = Session.LayoutDb,
                             .Name = Name,
                             .Pictures = Session.Pictures,
                             .InMemory = inMemory};
        for (const QString& value : record)
            layout.Values.Add(value);
        QStringList told;
        for (const Finding& finding : CheckLayout(layout))
            told.append(QStringLiteral("%1 %2: %3")
                            .arg(finding.Page)
                            .arg(RowOf(finding.Kind).Word, finding.Where));
        return told;
    }

    const Font Letters{.Name = QStringLiteral("Liberation Sans"), .Size = 10};
    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

TEST_F(LayoutCheck, GoesOverAllPagesWithTheValuesOfARecord)
{
    EXPECT_EQ(Told({QStringLiteral("Ada")}), QStringList());
    EXPECT_EQ(Told({LongName}), QStringList({QStringLiteral("1 text-leaves-box: Data Field 1"),
                                             QStringLiteral("2 text-leaves-box: Data Field 1")}));
}

TEST_F(LayoutCheck, GoesByTheNamesOfFieldsWithoutARecord)
{
    EXPECT_EQ(Told({}), QStringList());
    BeginPage(Session, 3);
    AddField(Session, 1, {200, 200, 300, 300}).SetFont(Letters);
    SavePage(Session);
    EXPECT_EQ(Told({}), QStringList(QStringLiteral("3 text-leaves-box: Data Field 1")));
}

TEST_F(LayoutCheck, KnowsTextsThatShrink)
{
    SetShrinkTo(*Session.Document.Find(Family::lbl_DATA, 1), 2);
    SavePage(Session);
    EXPECT_EQ(Told({LongName}), QStringList(QStringLiteral("1 text-leaves-box: Data Field 1")));
}

TEST_F(LayoutCheck, TakesTheOpenPageAsItIsAndChangesNothingOnIt)
{
    CardObject& field = *Session.Document.Find(Family::lbl_DATA, 1);
    field.Left = 2000;
    field.SetCaption(QStringLiteral("as it was"));
    AddImage(Session, QStringLiteral("/nowhere/logo.png"), {900, 200, 900, 900});
    const PageInMemory open{Session.Document, Session.CurrentParams};
    EXPECT_EQ(Told({LongName}, &open),
              QStringList({QStringLiteral("1 text-leaves-box: Data Field 1"),
                           QStringLiteral("2 text-leaves-card: Data Field 1"),
                           QStringLiteral("2 picture-missing: Image logo.png")}));
    EXPECT_EQ(field.Caption(), QStringLiteral("as it was"));
}

TEST_F(LayoutCheck, ChecksANewPageThatIsNotStored)
{
    BeginPage(Session, 3);
    AddText(Session, LongName).SetFont(Letters);
    const PageInMemory open{Session.Document, Session.CurrentParams};
    const QStringList told = Told({QStringLiteral("Ada")}, &open);
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told.front().startsWith(QStringLiteral("3 text-leaves-box")));
}

TEST_F(LayoutCheck, ChecksTheNumberThatComesNext)
{
    CardObject& number = *[&] {
        BeginPage(Session, 3);
        return &AddNumber(Session, 999, {200, 200, 300, 500});
    }();
    number.SetFont({.Name = QStringLiteral("Liberation Mono"), .Size = 10});
    // Three digits of this font fit, four do not.
    number.Width = 400;
    SavePage(Session);
    EXPECT_EQ(Told({}), QStringList(QStringLiteral("3 text-leaves-box: AutoNumber Field")));
    number.DataField = QStringLiteral("99");
    SavePage(Session);
    EXPECT_EQ(Told({}), QStringList());
}

TEST_F(LayoutCheck, SeesThatAFileHasGone)
{
    const QString path = Station.WritePng(QStringLiteral("logo.png"), 300, 300);
    AddImage(Session, path, {900, 200, 900, 900});
    SavePage(Session);
    EXPECT_EQ(Told({}), QStringList());
    QFile::remove(path);
    EXPECT_EQ(Told({}), QStringList(QStringLiteral("2 picture-missing: Image logo.png")));
}

TEST_F(LayoutCheck, LooksForThePictureThatTheRecordNames)
{
    Session.Pictures.Folder = Session.ProgramFolder;
    Station.WritePng(QStringLiteral("ada.png"), 300, 300);
    Station.WritePng(QStringLiteral("coarse.png"), 20, 20);
    AddImage(Session, QStringLiteral("{1}.png"), {900, 200, 900, 900});
    SavePage(Session);
    EXPECT_EQ(Told({}), QStringList());
    EXPECT_EQ(Told({QStringLiteral("ada")}), QStringList());
    EXPECT_EQ(Told({QStringLiteral("eve")}),
              QStringList(QStringLiteral("2 picture-missing: Image {1}.png")));
    EXPECT_EQ(Told({QStringLiteral("coarse")}),
              QStringList(QStringLiteral("2 picture-coarse: Image {1}.png")));
}

TEST_F(LayoutCheck, OfALayoutThatIsNotThereFindsNothing)
{
    EXPECT_TRUE(
        CheckLayout({.LayoutDb = Session.LayoutDb, .Name = QStringLiteral("Other")}).empty());
}

TEST(UsualCardSize, IsThatOfAPlasticCardOrOfThePrintersType)
{
    LayoutParamsRecord params;
    params.PrinterType = PrinterTypeCode::Plain;
    params.PrinterOrientation = 1;
    EXPECT_EQ(UsualCardSize(params), QSizeF(3060, 4860));
    params.PrinterOrientation = 2;
    EXPECT_EQ(UsualCardSize(params), QSizeF(4860, 3060));
    params.PrinterType = PrinterTypeCode::PlainFixedSize;
    const PrinterTypeRow& fixed = PrinterTypeOf(PrinterTypeCode::PlainFixedSize);
    EXPECT_EQ(UsualCardSize(params), QSizeF(static_cast<double>(fixed.FixedWidth),
                                            static_cast<double>(fixed.FixedHeight)));
}

} // namespace
} // namespace vantrel::test
