#include "station/layout/PageDescription.h"
#include "card/CardDocument.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

// A page as it was printed, kept for the day it is printed again.

namespace vantrel::test {

namespace {

class DescribedPage : public ::testing::Test
{
protected:
    DescribedPage()
    {
        Station.WithDatabase();
        BeginLayout(Session, Name);
        AddField(Session, 2).Alignment = 1;
        AddNumber(Session, 41);
        AddText(Session, QStringLiteral("Club \"Łódź\"")).ForeColor = 0x336699;
        AddImage(Session, Station.WritePng(QStringLiteral("photo.png"), 8, 8));
        Session.CurrentParams.Track1 = QStringLiteral("DAT1");
        SavePage(Session);
    }

    PageDescription Describe() { return DescribePage(Session.LayoutDb, Name, 1); }

    /// What printing takes from the objects of a document.
    static QStringList Looks(const CardDocument& document)
    {
        QStringList looks;
        for (const auto& object : document.Objects()) {
            if (!object->IsContent())
                continue;
            const Font font = object->IsLabel() ? object->Font() : Font();
            looks.append(QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8 %9")
                             .arg(object->TypeName(), object->LinkItem, object->Tag)
                             .arg(object->Left)
                             .arg(object->Top)
                             .arg(object->Alignment)
                             .arg(object->ForeColor)
                             .arg(font.Name)
                             .arg(font.Size));
        }
        return looks;
    }

    const QString Name = QStringLiteral("Badge");
    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

} // namespace

TEST_F(DescribedPage, HasTheObjectsAndParametersThatAreLoaded)
{
    CardDocument built;
    built.Load();
    LayoutParamsRecord params;
    BuildPage(Describe().Content, built, params);
    ASSERT_TRUE(LoadFirstPage(Session, Name));
    EXPECT_EQ(Looks(built), Looks(Session.Document));
    EXPECT_EQ(params.Track1, QStringLiteral("DAT1"));
    EXPECT_EQ(params.PrinterDevice, Session.CurrentParams.PrinterDevice);
    EXPECT_EQ(params.PrinterType, Session.CurrentParams.PrinterType);
    EXPECT_EQ(built.Find(Family::lbl_TEXT, 1)->Caption(), QStringLiteral("Club \"Łódź\""));
}

TEST_F(DescribedPage, StaysTheSameWhenItsNumberRises)
{
    const PageDescription before = Describe();
    Session.Document.Find(Family::lbl_AUTO, 1)->DataField = QStringLiteral("99");
    SavePage(Session);
    EXPECT_EQ(Describe().Hash, before.Hash);
    EXPECT_FALSE(before.Content.contains(QStringLiteral("\"41\"")));
}

TEST_F(DescribedPage, ChangesWithAnyOfItsObjects)
{
    const PageDescription before = Describe();
    Session.Document.Find(Family::lbl_TEXT, 1)->Left += 20;
    SavePage(Session);
    const PageDescription moved = Describe();
    EXPECT_NE(moved.Hash, before.Hash);
    Session.Document.Find(Family::lbl_TEXT, 1)->Left -= 20;
    SavePage(Session);
    EXPECT_EQ(Describe().Hash, before.Hash);
}

TEST_F(DescribedPage, ThatCannotBeReadIsEmpty)
{
    CardDocument built;
    built.Load();
    LayoutParamsRecord params;
    BuildPage(QStringLiteral("{\"objects\": 7"), built, params);
    EXPECT_TRUE(Looks(built).isEmpty());
}

} // namespace vantrel::test
