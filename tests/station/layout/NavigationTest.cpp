#include "station/layout/Navigation.h"
#include "base/Failure.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A layout of two pages, "Front" and "Back", open at page 1.
class TwoPages : public TestSession
{
public:
    TwoPages()
    {
        WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"));
        AddText(Session, QStringLiteral("Front"));
        SavePage(Session);
        BeginPage(Session, 2);
        AddText(Session, QStringLiteral("Back"));
        AddField(Session, 1);
        SavePage(Session);
        OpenLayout(Session, QStringLiteral("Badge"));
    }
    QString Text() const { return Session.Document.Find(Family::lbl_TEXT, 1)->Caption(); }
};

TEST(Navigation, NextLoadsThePageAndPoursTheRecordIntoIt)
{
    TwoPages station;
    SetRecord(station.Session, {QStringLiteral("Anna")});
    NextPage(station.Session);
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(station.Text(), QStringLiteral("Back"));
    EXPECT_EQ(station.Session.Document.Find(Family::lbl_DATA, 1)->Caption(),
              QStringLiteral("Anna"));
    EXPECT_EQ(station.Session.Face.StatusPanel(3).Text,
              QStringLiteral("Layout (Badge) Page 2 of 2"));
    PreviousPage(station.Session);
    EXPECT_EQ(station.Text(), QStringLiteral("Front"));
    EXPECT_EQ(station.Session.Face.StatusPanel(3).Text,
              QStringLiteral("Layout (Badge) Page 1 of 2"));
}

TEST(Navigation, AtEitherEndOnlyThePointerFlashes)
{
    TwoPages station;
    station.Operator.Pointer.clear();
    PreviousPage(station.Session);
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(station.Operator.Pointer, (std::vector<bool>{true, false}));
    NextPage(station.Session);
    const CardObject* text = station.Session.Document.Find(Family::lbl_TEXT, 1);
    station.Operator.Pointer.clear();
    NextPage(station.Session);
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(station.Session.Document.Find(Family::lbl_TEXT, 1), text);
    EXPECT_EQ(station.Operator.Pointer, (std::vector<bool>{true, false}));
}

TEST(Navigation, LayoutNamesComeOnceEachInNameOrder)
{
    TwoPages station;
    BeginLayout(station.Session, QStringLiteral("Access"));
    AddText(station.Session, QStringLiteral("A"));
    AddText(station.Session, QStringLiteral("B"));
    SavePage(station.Session);
    EXPECT_EQ(LayoutNames(station.Session.LayoutDb),
              (QStringList{QStringLiteral("Access"), QStringLiteral("Badge")}));
}

TEST(Navigation, LayoutNamesFailWithoutADatabase)
{
    TestSession station;
    EXPECT_THROW(LayoutNames(station.Session.LayoutDb), Failure);
}

TEST(Navigation, OpenShowsTheFirstPage)
{
    TwoPages station;
    station.Session.Document.Hide();
    station.Session.CurrentParams.PageIndex = 2;
    OpenLayout(station.Session, QStringLiteral("Badge"));
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(station.Text(), QStringLiteral("Front"));
    EXPECT_TRUE(station.Session.Document.IsShown());
    EXPECT_EQ(station.Session.Face.Caption(),
              QStringLiteral(" Vantrel v6.0   (Badge) printing to (Card Printer)"));
}

TEST(Navigation, OpeningALayoutThatIsGoneShowsTheEmptiedName)
{
    TwoPages station;
    OpenLayout(station.Session, QStringLiteral("Gone"));
    EXPECT_EQ(station.Session.CurrentLayoutName, QString());
    EXPECT_EQ(station.Session.Face.Caption(),
              QStringLiteral(" Vantrel v6.0   () printing to (Card Printer)"));
    EXPECT_EQ(station.Text(), QStringLiteral("Front"));
}

} // namespace
} // namespace vantrel::test
