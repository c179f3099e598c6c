#include "StoredRows.h"
#include "station/layout/DeleteLayout.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/NewLayout.h"
#include "station/layout/Pages.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

const QString Staff = QStringLiteral("Staff");

/// A record in which every value differs from that of a new or closed layout.
LayoutParamsRecord UsedParams(const TestSession& test)
{
    LayoutParamsRecord params;
    params.LayoutOpen = true;
    params.PrinterDevice = QStringLiteral("Elsewhere");
    params.PrinterOrientation = OrientationLandscape;
    params.PrinterType = PrinterTypeCode::Serialized;
    params.PrinterCopies = 4;
    params.Encode = true;
    params.Track1 = params.Track2 = params.Track3 = QStringLiteral("DAT1");
    params.BackImg1Path = test.WritePng(QStringLiteral("back.png"), 2, 2);
    params.BackImg1Picture = LoadPicture(params.BackImg1Path);
    params.BackImg2Path = params.BackImg1Path;
    params.BackImg2Picture = params.BackImg1Picture;
    params.Filter = QStringLiteral("-");
    params.PageIndex = 3;
    params.PageCount = 5;
    params.AutoSpool = true;
    return params;
}

void ExpectNoStripeAndNoBackImages(const LayoutParamsRecord& params)
{
    EXPECT_FALSE(params.Encode);
    EXPECT_TRUE(params.Track1.isEmpty() && params.Track2.isEmpty() && params.Track3.isEmpty());
    EXPECT_FALSE(params.BackImg1Picture.HasHandle() || params.BackImg2Picture.HasHandle());
    EXPECT_TRUE(params.BackImg1Path.isEmpty() && params.BackImg2Path.isEmpty());
}

TEST(CloseLayout, SetsTheRecordToItsDefaultsAndUnloadsTheForm)
{
    TestSession test;
    vantrel::Session& session = test.Session;
    BeginLayout(session, Staff);
    AddText(session, QStringLiteral("never saved"));
    session.CurrentParams = UsedParams(test);
    CloseLayout(session);
    const LayoutParamsRecord& params = session.CurrentParams;
    EXPECT_TRUE(session.CurrentLayoutName.isEmpty());
    EXPECT_FALSE(params.LayoutOpen);
    EXPECT_FALSE(params.AutoSpool);
    ExpectNoStripeAndNoBackImages(params);
    EXPECT_EQ(params.PageIndex, 1);
    EXPECT_EQ(params.PageCount, 1);
    EXPECT_EQ(params.PrinterCopies, 1);
    EXPECT_EQ(params.PrinterDevice, QStringLiteral("Card Printer"));
    EXPECT_TRUE(params.Filter.isEmpty());
    EXPECT_EQ(params.PrinterOrientation, 1);
    EXPECT_EQ(params.PrinterType, 9);
    EXPECT_EQ(session.Face.Caption(), QStringLiteral(" Vantrel v6.0"));
    EXPECT_FALSE(session.Document.IsLoaded());
    // It does not ask to save.
    EXPECT_TRUE(test.Operator.AppMessages.isEmpty());
    EXPECT_TRUE(test.Operator.Questions.isEmpty());
}

TEST(CloseLayout, WithoutAPrinterKeepsTheDeviceName)
{
    TestSession test(QStringList{});
    test.Session.CurrentParams.PrinterDevice = QStringLiteral("Elsewhere");
    CloseLayout(test.Session);
    EXPECT_EQ(test.Session.CurrentParams.PrinterDevice, QStringLiteral("Elsewhere"));
    EXPECT_EQ(test.Session.CurrentParams.PrinterType, 9);
}

TEST(NewLayout, ResetsTheRecordAndKeepsOrientationAndCopies)
{
    TestSession test;
    vantrel::Session& session = test.Session;
    BeginLayout(session, QStringLiteral("Old"));
    AddText(session, QStringLiteral("old"));
    session.CurrentParams = UsedParams(test);
    NewLayout(session, Staff);
    const LayoutParamsRecord& params = session.CurrentParams;
    EXPECT_EQ(session.CurrentLayoutName, Staff);
    ExpectNoStripeAndNoBackImages(params);
    EXPECT_EQ(params.PrinterDevice, QStringLiteral("Card Printer"));
    EXPECT_TRUE(params.Filter.isEmpty());
    EXPECT_EQ(params.PrinterType, 1);
    EXPECT_EQ(params.PrinterOrientation, OrientationLandscape);
    EXPECT_EQ(params.PrinterCopies, 4);
    EXPECT_EQ(session.Face.Caption(), QStringLiteral(" Ostrand Vantrel v6.0   (Staff)"));
    EXPECT_EQ(session.Document.Objects().size(), 13U);
    EXPECT_TRUE(session.Document.IsShown());
}

TEST(NewLayout, WithoutANameDoesNothing)
{
    TestSession test;
    BeginLayout(test.Session, Staff);
    AddText(test.Session, QStringLiteral("kept"));
    NewLayout(test.Session, QString());
    EXPECT_EQ(test.Session.CurrentLayoutName, Staff);
    EXPECT_EQ(test.Session.Document.HighestIndex(Family::lbl_TEXT), 1);
}

TEST(NewLayout, StoresNothingBeforeItsFirstSave)
{
    TestSession test;
    test.WithDatabase();
    NewLayout(test.Session, Staff);
    AddText(test.Session, QStringLiteral("x"));
    EXPECT_TRUE(StoredRows(test.Session, QStringLiteral("SELECT * FROM Controls")).isEmpty());
    EXPECT_TRUE(StoredRows(test.Session, QStringLiteral("SELECT * FROM LayoutParams")).isEmpty());
}

TEST(DeleteLayoutRows, DeletesObjectsAndParametersOfThatLayoutOnly)
{
    TestSession test;
    test.WithDatabase();
    vantrel::Session& session = test.Session;
    for (const QString& name : {QStringLiteral("Other"), Staff}) {
        BeginLayout(session, name);
        AddText(session, QStringLiteral("x"));
        AddField(session, 1);
        SavePage(session);
    }
    BeginPage(session, 2);
    AddText(session, QStringLiteral("back"));
    SavePage(session);
    Execute(session, QStringLiteral("INSERT INTO Serializer (LayoutName, ElementType) VALUES "
                                    "('Staff', 3)"));
    Execute(session, QStringLiteral("INSERT INTO MacroElements (MacroID, LayoutName) VALUES "
                                    "(1, 'Staff')"));
    session.CurrentParams.Encode = true;
    DeleteLayoutRows(session, session.CurrentLayoutName);
    const auto names = [&](const char* table) {
        QStringList found;
        for (const StoredRow& row : StoredRows(session, QStringLiteral("SELECT LayoutName FROM ") +
                                                            QLatin1StringView(table)))
            found.append(row[QStringLiteral("LayoutName")].toString());
        return found;
    };
    EXPECT_EQ(names("Controls"), (QStringList{QStringLiteral("Other"), QStringLiteral("Other")}));
    EXPECT_EQ(names("LayoutParams"), QStringList{QStringLiteral("Other")});
    EXPECT_EQ(names("Serializer"), QStringList{Staff});
    EXPECT_EQ(names("MacroElements"), QStringList{Staff});
    EXPECT_TRUE(session.CurrentLayoutName.isEmpty());
    EXPECT_FALSE(session.Document.IsLoaded());
    ExpectNoStripeAndNoBackImages(session.CurrentParams);
    EXPECT_EQ(session.Face.Caption(), QStringLiteral(" Vantrel v6.0"));
}

TEST(DeleteLayoutRows, WithTheStoreClosedStillClosesTheLayout)
{
    TestSession test;
    BeginLayout(test.Session, Staff);
    DeleteLayoutRows(test.Session, Staff);
    EXPECT_TRUE(test.Session.CurrentLayoutName.isEmpty());
    EXPECT_FALSE(test.Session.Document.IsLoaded());
}

TEST(RefreshData, ShowsThePageNumberOrThatThePageIsNew)
{
    TestSession test;
    vantrel::Session& session = test.Session;
    session.CurrentLayoutName = Staff;
    session.CurrentParams.PageIndex = 2;
    session.CurrentParams.PageCount = 2;
    RefreshData(session.Face, session.CurrentLayoutName, session.CurrentParams);
    EXPECT_EQ(session.Face.StatusPanel(3).Text, QStringLiteral("Layout (Staff) Page 2 of 2"));
    session.CurrentParams.PageCount = 1;
    RefreshData(session.Face, session.CurrentLayoutName, session.CurrentParams);
    EXPECT_EQ(session.Face.StatusPanel(3).Text, QStringLiteral("Layout (Staff) New Page* "));
}

} // namespace

} // namespace vantrel::test
