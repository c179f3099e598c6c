#include "station/layout/DocumentForm.h"
#include "base/Failure.h"
#include "card/Grips.h"
#include "station/layout/DrawObjects.h"
#include "support/Layouts.h"
#include <QObject>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

TEST(DocumentForm, FirstUsePlacesItAndTakesThePageOfTheCurrentPrinter)
{
    TestSession test;
    vantrel::Session& session = test.Session;
    session.Document.SelectedIndex = 5;
    EnsureDocument(session);
    EXPECT_TRUE(session.Document.IsLoaded());
    EXPECT_EQ(session.Document.Left, 600.0F);
    EXPECT_EQ(session.Document.Top, 600.0F);
    EXPECT_EQ(session.Document.Width, 3060.0F);
    EXPECT_EQ(session.Document.Height, 4860.0F);
    EXPECT_EQ(session.Document.SelectedObject, nullptr);
    EXPECT_FALSE(session.Document.IsShown());
}

TEST(DocumentForm, FirstUseRefreshesTheFieldMenu)
{
    TestSession test;
    SetRecord(test.Session, {QStringLiteral("A"), QStringLiteral("B")});
    EnsureDocument(test.Session);
    EXPECT_EQ(test.Session.Face.Fields().Count(), 2);
}

TEST(DocumentForm, LaterUseLeavesItAlone)
{
    TestSession test;
    EnsureDocument(test.Session);
    test.Session.Document.Left = 10;
    AddText(test.Session, QStringLiteral("x"));
    EnsureDocument(test.Session);
    EXPECT_EQ(test.Session.Document.Left, 10.0F);
    EXPECT_EQ(test.Session.Document.HighestIndex(Family::lbl_TEXT), 1);
}

TEST(DocumentForm, ComesUpWithoutAPrinter)
{
    TestSession test(QStringList{});
    EnsureDocument(test.Session);
    EXPECT_TRUE(test.Session.Document.IsLoaded());
    EXPECT_EQ(test.Session.Document.Left, 600.0F);
}

struct SizeCase
{
    std::int32_t PrinterType;
    bool SetsOrientation;
    float Width;
    float Height;
};

/// The form is 100 by 5000 before, the printer's page 3060 by 4860 upright, and landscape is
/// wanted.
constexpr SizeCase SizeCases[] = {
    {-1, false, 2000, 5000}, {0, false, 2000, 5000}, {1, true, 4860, 3060}, {2, true, 4860, 3060},
    {3, false, 3060, 4860},  {4, true, 4860, 3060},  {5, true, 4860, 3060}, {6, false, 2000, 5000},
    {7, false, 2000, 5000},  {8, false, 2000, 5000}, {9, true, 4860, 3060}, {10, false, 8000, 2000},
    {11, true, 4860, 3060},  {12, false, 2000, 5000}};

TEST(SetSize, FitsTheFormToThePageByTheKindOfPrinter)
{
    static_assert(std::size(SizeCases) == 14);
    for (const SizeCase& row : SizeCases) {
        TestSession test;
        vantrel::Session& session = test.Session;
        EnsureDocument(session);
        session.Document.Width = 100;
        session.Document.Height = 5000;
        session.CurrentParams.PrinterType = row.PrinterType;
        session.CurrentParams.PrinterOrientation = OrientationLandscape;
        SetSize(session);
        EXPECT_EQ(session.Document.Width, row.Width) << row.PrinterType;
        EXPECT_EQ(session.Document.Height, row.Height) << row.PrinterType;
        EXPECT_EQ(test.Printers.Operations, row.SetsOrientation
                                                ? QStringList{QStringLiteral("Orientation = 2")}
                                                : QStringList{})
            << row.PrinterType;
    }
}

/// A printer of labels hardly larger than a stamp.
class StampPrinter : public RecordingPrinter
{
public:
    using RecordingPrinter::RecordingPrinter;
    double Width() const override { return 1440; }
    double Height() const override { return 720; }
};

class StampPrinters : public Printers
{
public:
    QStringList DeviceNames() override { return {m_printer.DeviceName()}; }
    void MakeCurrent(const QString& /*deviceName*/) override {}
    Printer& Current() override { return m_printer; }

private:
    QStringList m_operations;
    StampPrinter m_printer{QStringLiteral("Stamps"), m_operations};
};

TEST(SetSize, ASmallPageStillGivesTwoThousandTwipsEachWay)
{
    TestOperator testOperator;
    StampPrinters printers;
    vantrel::Session session(QStringLiteral("/nowhere"), testOperator, printers);
    session.CurrentParams.PrinterType = PrinterTypeCode::Serialized;
    SetSize(session);
    EXPECT_EQ(session.Document.Width, 2000.0F);
    EXPECT_EQ(session.Document.Height, 2000.0F);
}

TEST(SetSize, FailsWhereThePrinterDoesNotAnswer)
{
    TestSession test(QStringList{});
    test.Session.CurrentParams.PrinterType = PrinterTypeCode::Plain;
    EXPECT_THROW(SetSize(test.Session), Failure);
}

TEST(ShowHandles, ShowsAndHidesAllEightGrips)
{
    TestSession test;
    vantrel::Session& session = test.Session;
    EnsureDocument(session);
    for (const bool show : {true, false}) {
        ShowHandles(session.Document, show);
        EXPECT_EQ(session.Document.HandlesShown, show);
        for (int grip = 0; grip < 8; ++grip)
            EXPECT_EQ(session.Document.Find(Family::picHandle, grip)->Visible, show) << grip;
    }
}

TEST(RePaint, SignalsThatThePageHasChanged)
{
    TestSession test;
    int changes = 0;
    QObject::connect(&test.Session.Document, &CardDocument::Changed, [&] { ++changes; });
    RePaint(test.Session.Document);
    EXPECT_EQ(changes, 1);
}

} // namespace

} // namespace vantrel::test
