#include "card/ObjectArrange.h"
#include "desktop/Designer.h"
#include "station/capture/Pipeline.h"
#include "station/layout/DesignSteps.h"
#include "support/Layouts.h"
#include <QAction>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

// Records that come while the mouse or a dialog is at work on the card, where they print behind it.

namespace vantrel::test {
namespace {

StationOptions Tools()
{
    StationOptions options;
    options.DesignTools = true;
    options.Unit = LengthUnit::Twips;
    return options;
}

/// Ticks automatic printing as the operator does, and saves.
void PrintAtOnce(Designer& station)
{
    station.Choose("chkAutoSpool");
    SavePage(station.Session);
}

/// The text is at 400, 300, the field below it at 400, 900 and the number at 400, 1500.
class DesignWhileRecordsCome : public ::testing::Test
{
protected:
    DesignWhileRecordsCome()
    {
        Station.Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"),
                                            QStringLiteral(">")};
        PrintAtOnce(Station);
        Station.Session.History.Clear();
        Station.Session.History.PageWasLoaded();
        NoteDesign(Station.Session);
        Station.Printers.Operations.clear();
    }

    void Record()
    {
        TakeArrival(Station.Session, QStringLiteral("<Ada>"),
                    {QStringLiteral("Got Data (TCP/IP)"), QStringLiteral("192.0.2.7")});
        QCoreApplication::processEvents();
        ++m_records;
    }
    void ExpectThatAllPrinted() const
    {
        EXPECT_EQ(Station.Printers.Operations.count(QStringLiteral("Print(\"Ada\")")), m_records);
        EXPECT_EQ(Station.Printers.Operations.count(QStringLiteral("EndDoc")), m_records);
    }

    CardObject& Text() { return Station.Object(Family::lbl_TEXT); }

    Designer Station{Tools()};
    const QPoint OnText = Station.At(600, 375);

private:
    int m_records = 0;
};

TEST_F(DesignWhileRecordsCome, ADragEndsWhereTheMouseIs)
{
    const QString title = Station.Window.windowTitle();
    Station.Press(OnText);
    Record();
    Station.Move(Station.At(700, 600));
    Record();
    const QImage outline = Station.Form->grab().toImage();
    Station.Move(Station.At(900, 825));
    EXPECT_NE(Station.Form->grab().toImage(), outline);
    Record();
    Station.Release(Station.At(900, 825));
    ExpectBox(Text(), 705, 750, 1500, 300);
    Record();
    ExpectBox(Text(), 705, 750, 1500, 300);
    EXPECT_TRUE(Station.Selected());
    EXPECT_TRUE(IsPageUnsaved(Station.Session));
    EXPECT_EQ(Station.Window.windowTitle(), title);
    ExpectThatAllPrinted();
    Station.Choose("cmdUndo");
    ExpectBox(Text(), 400, 300, 1500, 300);
}

TEST_F(DesignWhileRecordsCome, AGripSizesTheObjectThatItWasTakenFrom)
{
    Station.Click(OnText);
    Station.Press(Station.Grip(4));
    Record();
    Station.Move(Station.At(2200, 800));
    Record();
    Station.Release(Station.At(2200, 800));
    EXPECT_GT(Text().Width, 1700);
    EXPECT_GT(Text().Height, 400);
    ExpectThatAllPrinted();
}

TEST_F(DesignWhileRecordsCome, ABandSelectsAlsoWhereARecordComesBeforeItsRelease)
{
    Station.Press(Station.At(2900, 200));
    Station.Move(Station.At(300, 1300));
    Record();
    Station.Release(Station.At(300, 1300));
    EXPECT_EQ(SelectedObjects(Station.Session.Document).size(), 2U);
    Record();
    EXPECT_EQ(SelectedObjects(Station.Session.Document).size(), 2U);
    ExpectThatAllPrinted();
}

TEST_F(DesignWhileRecordsCome, ADialogStaysWithItsObject)
{
    Station.Click(OnText);
    Station.Choose("cmdSize");
    auto& top = Station.Get<QLineEdit>("txtTop");
    Record();
    EXPECT_TRUE(top.isVisible());
    QTest::keyClick(&top, Qt::Key_Up);
    Record();
    QTest::keyClick(&top, Qt::Key_Up);
    QCoreApplication::processEvents();
    EXPECT_EQ(Text().Top, 302);
    ExpectThatAllPrinted();
}

TEST_F(DesignWhileRecordsCome, TheNumberOnTheScreenFollowsTheCards)
{
    const QImage before = Station.Form->grab().toImage();
    const QString field = Station.Object(Family::lbl_DATA).Caption();
    Record();
    EXPECT_EQ(Station.Object(Family::lbl_AUTO).Caption(), QStringLiteral("8"));
    EXPECT_EQ(Station.Object(Family::lbl_DATA).Caption(), field);
    EXPECT_NE(Station.Form->grab().toImage(), before);
    EXPECT_FALSE(IsPageUnsaved(Station.Session));
}

TEST(DesignWhileRecordsComeOff, ARecordTakesThePageAndItsValuesAreSeen)
{
    Designer station;
    station.Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"),
                                        QStringLiteral(">")};
    PrintAtOnce(station);
    const QPoint text = station.At(600, 375);
    station.Drag(text, station.At(900, 825));
    TakeArrival(station.Session, QStringLiteral("<Ada>"),
                {QStringLiteral("Got Data (TCP/IP)"), QStringLiteral("192.0.2.7")});
    QCoreApplication::processEvents();
    ExpectBox(station.Object(Family::lbl_TEXT), 400, 300, 1500, 300);
    EXPECT_EQ(station.Object(Family::lbl_DATA).Caption(), QStringLiteral("Ada"));
}

} // namespace
} // namespace vantrel::test
