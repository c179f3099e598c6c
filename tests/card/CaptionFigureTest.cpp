#include "card/CaptionFigure.h"
#include "card/CardDocument.h"
#include "card/LayoutParamsRecord.h"
#include "card/PaintDocument.h"
#include "drawing/PageCanvas.h"
#include "support/CodeSamples.h"
#include "support/Print.h"
#include <QSet>
#include <gtest/gtest.h>

// Labels whose font shows a bar code or a shape.

namespace vantrel::test {
namespace {

struct Place
{
    float Left = 300;
    float Top = 400;
    float Width = 2400;
    float Height = 1000;
};

CardObject LabelOf(const QString& font, const QString& caption, const Place& place = {})
{
    CardObject label(Family::lbl_TEXT, 1);
    label.SetFont({font, 10});
    label.SetCaption(caption);
    label.Left = place.Left;
    label.Top = place.Top;
    label.Width = place.Width;
    label.Height = place.Height;
    return label;
}

QString FontOf(CodeKind kind)
{
    return QStringLiteral("Barcode ") + RowOf(kind).Name;
}

/// The widest line and the end of the last one, in twips.
std::pair<double, double> EndsOf(const CaptionFigure& figure)
{
    double right = 0;
    double bottom = 0;
    for (const NoticeLine& line : figure.Notice) {
        right = std::max(right, line.X + PageCanvas::TextWidth(line.Text, figure.NoticeFont));
        bottom = std::max(bottom, line.Y + PageCanvas::TextHeight(line.Text, figure.NoticeFont));
    }
    return {right, bottom};
}

TEST(CaptionFigure, OnlyTheExactNamesOfKindsAreFigures)
{
    for (int i = 0; i < CodeKindCount; ++i) {
        const QString name = FontOf(static_cast<CodeKind>(i));
        EXPECT_TRUE(IsFigureFont({name, 10})) << name.toStdString();
        EXPECT_FALSE(IsFigureFont({name.toUpper() + QStringLiteral(" "), 10}));
    }
    for (const char* name :
         {"Shape Rectangle", "Shape Rounded Rectangle", "Shape Ellipse", "Shape Line"})
        EXPECT_TRUE(IsFigureFont({QLatin1StringView(name), 10})) << name;
    for (const char* name : {"", "Arial", "Barcode", "Barcode ", "Barcode QR", "BarcodeQR Code",
                             "barcode QR Code", "Barcode  QR Code", "QR Code", "Shape",
                             "Shape Circle", "Shape rectangle", "Shape QR Code", "Free 3 of 9"})
        EXPECT_FALSE(IsFigureFont({QLatin1StringView(name), 10})) << name;
}

TEST(CaptionFigure, TheListOfFontsHasEveryKindAndShapeOnce)
{
    const QStringList names = FigureFontNames();
    EXPECT_EQ(names.size(), CodeKindCount + 4);
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), names.size());
    for (const QString& name : names)
        EXPECT_TRUE(IsFigureFont({name, 10})) << name.toStdString();
}

TEST(CaptionFigure, EachKindShowsItsCaption)
{
    for (int i = 0; i < CodeKindCount; ++i) {
        const auto kind = static_cast<CodeKind>(i);
        const CaptionFigure figure = FigureOf(LabelOf(FontOf(kind), SampleTextOf(kind)), 0);
        EXPECT_EQ(figure.Trouble, QString());
        EXPECT_TRUE(figure.Notice.empty());
        EXPECT_EQ(figure.Boxes.size(), CodePatternOf(kind, SampleTextOf(kind), 2.4)->Runs.size());
    }
}

TEST(CaptionFigure, AnEmptyCaptionDrawsNoCode)
{
    const CaptionFigure figure = FigureOf(LabelOf(FontOf(CodeKind::Ean13), QString()), 0);
    EXPECT_TRUE(figure.Boxes.empty());
    EXPECT_TRUE(figure.Notice.empty());
    EXPECT_EQ(figure.Trouble, QString());
}

TEST(CaptionFigure, AWrongCaptionGivesAFrameAndANoticeInsideIt)
{
    const QString trouble = QStringLiteral("EAN-13: 12 or 13 digits are wanted");
    for (const Place& place : {Place{}, Place{100, 100, 800, 500}, Place{0, 0, 3000, 160}}) {
        const CaptionFigure figure =
            FigureOf(LabelOf(FontOf(CodeKind::Ean13), QStringLiteral("secret"), place), 300);
        EXPECT_EQ(figure.Trouble, trouble);
        ASSERT_EQ(figure.Boxes.size(), 4U);
        for (const FilledBox& box : figure.Boxes) {
            EXPECT_GE(box.X, place.Left);
            EXPECT_GE(box.Y, place.Top);
            EXPECT_LE(box.X + box.Width, place.Left + place.Width);
            EXPECT_LE(box.Y + box.Height, place.Top + place.Height);
            EXPECT_LE(std::min(box.Width, box.Height), 15);
        }
        QStringList words;
        for (const NoticeLine& line : figure.Notice) {
            EXPECT_GT(line.X, place.Left);
            EXPECT_GT(line.Y, place.Top);
            words.append(line.Text);
        }
        EXPECT_EQ(words.join(QLatin1Char(' ')), trouble);
        const auto [right, bottom] = EndsOf(figure);
        EXPECT_LT(right, place.Left + place.Width);
        EXPECT_LT(bottom, place.Top + place.Height);
        EXPECT_GE(figure.NoticeFont.Size, 3);
        EXPECT_LE(figure.NoticeFont.Size, 10);
    }
}

TEST(CaptionFigure, ABoxThatIsTooSmallSaysSoInTheSmallestLetters)
{
    for (const Place& place : {Place{300, 400, 200, 200}, Place{300, 400, 0, 0}}) {
        const CaptionFigure figure =
            FigureOf(LabelOf(FontOf(CodeKind::QrCode), QStringLiteral("Ada"), place), 0);
        EXPECT_EQ(figure.Trouble, QStringLiteral("QR Code: a larger box is wanted"));
        EXPECT_EQ(figure.NoticeFont.Size, 3);
        EXPECT_FALSE(figure.Notice.empty());
    }
}

TEST(CaptionFigure, ShapesFillTheirBoxWhateverTheCaption)
{
    const FilledBox box{.X = 300, .Y = 400, .Width = 2400, .Height = 1000};
    FilledBox rounded = box;
    rounded.RadiusX = rounded.RadiusY = 200;
    FilledBox ellipse = box;
    ellipse.RadiusX = 1200;
    ellipse.RadiusY = 500;
    const auto shape = [](const char* name, const char* caption) {
        const CaptionFigure figure =
            FigureOf(LabelOf(QLatin1StringView(name), QLatin1StringView(caption)), 300);
        EXPECT_EQ(figure.Boxes.size(), 1U);
        EXPECT_TRUE(figure.Notice.empty());
        return figure.Boxes.empty() ? FilledBox() : figure.Boxes.front();
    };
    for (const char* caption : {"", "Static Text 1"}) {
        EXPECT_EQ(shape("Shape Rectangle", caption), box);
        EXPECT_EQ(shape("Shape Rounded Rectangle", caption), rounded);
        EXPECT_EQ(shape("Shape Ellipse", caption), ellipse);
        EXPECT_EQ(shape("Shape Line", caption), box);
    }
}

TEST(CaptionFigure, ALineShowsEvenInABoxWithoutHeight)
{
    const auto line = [](const Place& place) {
        return FigureOf(LabelOf(QStringLiteral("Shape Line"), QString(), place), 0).Boxes.front();
    };
    const FilledBox across = line({100, 100, 2000, 0});
    EXPECT_EQ(across.Width, 2000);
    EXPECT_GT(across.Height, 0);
    const FilledBox down = line({100, 100, 0, 2000});
    EXPECT_EQ(down.Height, 2000);
    EXPECT_GT(down.Width, 0);
}

TEST(CaptionFigure, TheScreenShowsCodesShapesAndNoticesInTheTextColour)
{
    CardDocument document;
    document.Load();
    document.Width = 3060;
    document.Height = 4860;
    const auto add = [&](const QString& font, const QString& caption, float top) {
        CardObject& label = document.Add(Family::lbl_TEXT);
        label = LabelOf(font, caption, {300, top, 2400, 1000});
        label.Tag = QString();
        label.ForeColor = 0x0000FF;
    };
    add(FontOf(CodeKind::QrCode), QStringLiteral("Ada"), 200);
    add(QStringLiteral("Shape Ellipse"), QString(), 1600);
    add(FontOf(CodeKind::Ean8), QStringLiteral("Ada"), 3000);
    QImage image(612, 972, QImage::Format_RGB32);
    image.fill(Qt::white);
    const auto canvas = PageCanvas::OnImage(image, 0.2);
    PaintDocument(document, {}, *canvas);
    canvas->Finish();
    // Red ink in the middle of the ellipse, in the finder of the code, on the frame of the notice.
    EXPECT_EQ(image.pixel(300, 420), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(62, 600), qRgb(255, 0, 0));
    int inCode = 0;
    int inNotice = 0;
    for (int y = 0; y < 972; ++y) {
        for (int x = 70; x < 530; ++x) {
            const bool red = qGreen(image.pixel(x, y)) < 100;
            EXPECT_TRUE(qRed(image.pixel(x, y)) == 255);
            inCode += red && y < 240 ? 1 : 0;
            inNotice += red && y > 610 && y < 790 ? 1 : 0;
        }
    }
    EXPECT_GT(inCode, 5000);
    EXPECT_GT(inNotice, 100);
}

} // namespace
} // namespace vantrel::test
