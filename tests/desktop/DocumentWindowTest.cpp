#include "card/PaintDocument.h"
#include "desktop/DesktopStation.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/designer/frmDocument.h"
#include "drawing/PageCanvas.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QAbstractButton>
#include <QApplication>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// The card as the renderer of the printed page draws it at screen size.
QImage PaintedCard(const Session& session)
{
    const CardDocument& document = session.Document;
    QImage card(ScreenRect(0, 0, document.Width, document.Height).size(), QImage::Format_RGB32);
    card.fill(Qt::white);
    const auto canvas = PageCanvas::OnImage(card, ScreenPixelsPerInch / TwipsPerInch);
    PaintDocument(session.Document, session.CurrentParams, *canvas);
    canvas->Finish();
    return card;
}

frmDocument& ShownDocument(DesktopStation& station)
{
    station.Load();
    auto& document = station.Get<frmDocument>("frmDocument");
    EXPECT_TRUE(EventsUntil([&] { return document.isVisible(); }));
    return document;
}

TEST(DocumentWindow, ShowsWhatPrints)
{
    DesktopStation station;
    station.WithLayout();
    AddImage(station.Session, station.WritePng(QStringLiteral("photo.png"), 60, 80),
             {1500, 500, 900, 700});
    SavePage(station.Session);
    ASSERT_TRUE(LoadLayout(station.Session, QStringLiteral("Badge")));
    auto& document = ShownDocument(station);
    const QImage expected = PaintedCard(station.Session);
    QImage blank(expected.size(), expected.format());
    blank.fill(Qt::white);
    EXPECT_NE(expected, blank);
    EXPECT_EQ(document.CardPicture(), expected);
    // The designer draws outlines around texts; the rest of the window shows the card itself.
    const QImage shown = document.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QRect photo = ScreenRect(500, 1500, 700, 900);
    EXPECT_EQ(shown.copy(photo.translated(document.CardRect().topLeft())), expected.copy(photo));
}

TEST(DocumentWindow, StandsAtTheDocumentsPlaceInItsSize)
{
    DesktopStation station;
    station.WithLayout();
    const auto& document = ShownDocument(station);
    // 600 twips from the corner, 3060 by 4860 of size, and the surround of 8 pixels.
    EXPECT_EQ(document.geometry(), QRect(40 - 8, 40 - 8, 204 + 16, 324 + 16));
    station.Session.CurrentParams.PrinterOrientation = OrientationLandscape;
    SetSize(station.Session);
    EXPECT_TRUE(EventsUntil([&] { return document.width() == 324 + 16; }));
    EXPECT_EQ(document.height(), 204 + 16);
}

TEST(DocumentWindow, FollowsTheRecord)
{
    DesktopStation station;
    station.WithLayout();
    auto& document = ShownDocument(station);
    const QImage before = document.CardPicture();
    station.Session.Document.Find(Family::lbl_DATA, 1)->SetCaption(QStringLiteral("Anna"));
    station.Session.Document.Refresh();
    EXPECT_TRUE(EventsUntil([&] { return document.CardPicture() != before; }));
    EXPECT_EQ(document.CardPicture(), PaintedCard(station.Session));
}

TEST(DocumentWindow, ComesAndGoesWithTheDocument)
{
    DesktopStation station;
    station.WithLayout();
    auto& document = ShownDocument(station);
    station.Session.Document.Hide();
    EXPECT_TRUE(EventsUntil([&] { return !document.isVisible(); }));
    station.Session.Document.Show();
    EXPECT_TRUE(EventsUntil([&] { return document.isVisible(); }));
    station.Session.Document.Unload();
    EXPECT_TRUE(EventsUntil([&] { return !document.isVisible(); }));
}

TEST(DocumentWindow, CannotBeClosed)
{
    DesktopStation station;
    station.WithLayout();
    auto& document = ShownDocument(station);
    EXPECT_FALSE(document.close());
    EXPECT_TRUE(document.isVisible());
}

TEST(Navigator, StepsThroughThePages)
{
    DesktopStation station;
    station.WithLayout();
    BeginPage(station.Session, 2);
    AddText(station.Session, QStringLiteral("Back side"));
    SavePage(station.Session);
    station.Load();
    EXPECT_TRUE(EventsUntil([&] { return station.Get<QAbstractButton>("cmdPrev").isEnabled(); }));
    ASSERT_EQ(station.Session.CurrentParams.PageIndex, 2);
    station.Press("cmdPrev");
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(station.Session.Document.Find(Family::lbl_TEXT, 1)->Caption(),
              QStringLiteral("Visitor"));
    station.Press("cmdPrev");
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 1);
    station.Press("cmdNext");
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 2);
}

TEST(Navigator, ButtonsSayWhatTheyDo)
{
    DesktopStation station;
    station.Load();
    for (const char* name :
         {"cmdPrev", "cmdNext", "cmdNewPage", "cmdDelete", "cmdSave", "cmdOpen"}) {
        const auto& button = station.Get<QAbstractButton>(name);
        EXPECT_FALSE(button.icon().isNull()) << name;
        EXPECT_FALSE(button.accessibleName().isEmpty()) << name;
        EXPECT_EQ(button.toolTip(), button.accessibleName()) << name;
    }
}

TEST(Navigator, SaveSavesThePage)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    station.Press("cmdSave");
    EXPECT_EQ(station.Operator.AppMessages.size(), 1);
}

} // namespace
} // namespace vantrel::test
