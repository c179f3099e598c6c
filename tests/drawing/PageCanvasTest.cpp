#include "drawing/PageCanvas.h"
#include "PageTest.h"
#include "base/Failure.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include <QFile>
#include <cmath>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

const Font Arial{QStringLiteral("Liberation Sans"), 10};

class PageCanvasTest : public PageTest
{};

} // namespace

TEST_F(PageCanvasTest, ThePageHasExactlyItsSize)
{
    const QString path = Pdf([](PageCanvas&) {});
    EXPECT_EQ(PageSizeOfPdf(path), QStringLiteral("153 x 243"));
    EXPECT_EQ(PagesOfPdf(path), 1);
}

TEST_F(PageCanvasTest, TextStandsAtItsTwips)
{
    const QString path = Pdf([](PageCanvas& page) {
        page.DrawText(QStringLiteral("Here"), Arial, ColorBlack, 201, 407);
        page.DrawText(QStringLiteral("There"), Arial, ColorBlack, 1333, 2001);
    });
    EXPECT_NEAR(WordOfPdf(path, QStringLiteral("Here")).XMin, 10.05, 0.01);
    EXPECT_NEAR(WordOfPdf(path, QStringLiteral("Here")).YMin, 20.35, 0.1);
    EXPECT_NEAR(WordOfPdf(path, QStringLiteral("There")).XMin, 66.65, 0.01);
    EXPECT_NEAR(WordOfPdf(path, QStringLiteral("There")).YMin, 100.05, 0.1);
}

TEST_F(PageCanvasTest, MeasuredWidthIsDrawnWidth)
{
    const QString text = QStringLiteral("Measured");
    const QString path =
        Pdf([&](PageCanvas& page) { page.DrawText(text, Arial, ColorBlack, 200, 200); });
    const PdfWord word = WordOfPdf(path, text);
    EXPECT_NEAR(word.XMax - word.XMin, PageCanvas::TextWidth(text, Arial) / 20, 0.02);
}

TEST_F(PageCanvasTest, TextIsRealTextInEmbeddedFonts)
{
    const QString text = QString::fromUtf8("Éva-Groß-€5-é<&>");
    const QString path =
        Pdf([&](PageCanvas& page) { page.DrawText(text, Arial, ColorBlack, 200, 200); });
    EXPECT_EQ(WordsOfPdf(path).at(0).Text, text);
    const QString fonts = OutputOf(QStringLiteral("pdffonts"), {path});
    EXPECT_TRUE(fonts.contains(QStringLiteral("+LiberationSans"))) << fonts.toStdString();
}

TEST_F(PageCanvasTest, EachStyleTakesItsOwnFace)
{
    Font bold = Arial;
    bold.Bold = true;
    Font italic = Arial;
    italic.Italic = true;
    const QString path = Pdf([&](PageCanvas& page) {
        page.DrawText(QStringLiteral("bold"), bold, ColorBlack, 200, 200);
        page.DrawText(QStringLiteral("italic"), italic, ColorBlack, 200, 600);
    });
    const QString fonts = OutputOf(QStringLiteral("pdffonts"), {path});
    EXPECT_TRUE(fonts.contains(QStringLiteral("LiberationSans-Bold"))) << fonts.toStdString();
    EXPECT_TRUE(fonts.contains(QStringLiteral("LiberationSans-Italic"))) << fonts.toStdString();
}

TEST_F(PageCanvasTest, UnderlineIsBelowTheTextAndStrikethroughInIt)
{
    // A blank has no ink except for its underline and strikethrough.
    const QString blanks = QStringLiteral("x    x");
    Font underlined = Arial;
    underlined.Underline = true;
    Font struck = Arial;
    struck.Strikethrough = true;
    const auto inkOfBlanks = [&](const Font& font) {
        const QImage image =
            Screen(0.5, [&](PageCanvas& page) { page.DrawText(blanks, font, ColorBlack, 0, 0); });
        const int middle = static_cast<int>(PageCanvas::TextWidth(blanks, font) / 4);
        return InkOf(image.copy(middle, 0, 4, 300));
    };
    const double lineHeight = PageCanvas::TextHeight(blanks, Arial) / 2;
    EXPECT_TRUE(inkOfBlanks(Arial).isNull());
    EXPECT_GT(inkOfBlanks(underlined).top(), lineHeight * 0.7);
    EXPECT_LT(inkOfBlanks(underlined).bottom(), lineHeight);
    EXPECT_GT(inkOfBlanks(struck).top(), lineHeight * 0.4);
    EXPECT_LT(inkOfBlanks(struck).bottom(), lineHeight * 0.7);
}

TEST_F(PageCanvasTest, EachLineEndBeginsALineOneFontLineBelow)
{
    const QString path = Pdf([](PageCanvas& page) {
        page.DrawText(QStringLiteral("one\rtwo\nthree\r\nfour\n\nsix"), Arial, ColorBlack, 400, 0);
    });
    const double line = PageCanvas::TextHeight(QStringLiteral("x"), Arial) / 20;
    EXPECT_GT(line, 10);
    const std::vector<std::pair<const char*, int>> rows{
        {"one", 0}, {"two", 1}, {"three", 2}, {"four", 3}, {"six", 5}};
    for (const auto& [text, row] : rows) {
        const PdfWord word = WordOfPdf(path, QLatin1StringView(text));
        EXPECT_NEAR(word.YMin, row * line, 0.1) << text;
        EXPECT_NEAR(word.XMin, 20, 0.01) << text;
    }
    EXPECT_EQ(WordsOfPdf(path).size(), rows.size());
}

TEST_F(PageCanvasTest, HeightCountsLinesAndAnEmptyTextHasOne)
{
    const double line = PageCanvas::TextHeight(QString(), Arial);
    EXPECT_GT(line, 200);
    EXPECT_DOUBLE_EQ(PageCanvas::TextHeight(QStringLiteral("a"), Arial), line);
    EXPECT_DOUBLE_EQ(PageCanvas::TextHeight(QStringLiteral("a\r\nb"), Arial), 2 * line);
    EXPECT_DOUBLE_EQ(PageCanvas::TextHeight(QStringLiteral("a\n"), Arial), 2 * line);
    EXPECT_DOUBLE_EQ(PageCanvas::TextHeight(QStringLiteral("\n\r"), Arial), 3 * line);
}

TEST_F(PageCanvasTest, WidthIsThatOfTheWidestLine)
{
    EXPECT_DOUBLE_EQ(PageCanvas::TextWidth(QString(), Arial), 0);
    EXPECT_DOUBLE_EQ(PageCanvas::TextWidth(QStringLiteral("i\nWWW\nii"), Arial),
                     PageCanvas::TextWidth(QStringLiteral("WWW"), Arial));
}

TEST_F(PageCanvasTest, OtherControlCharactersDrawNothingAndTakeNoWidth)
{
    const double width = PageCanvas::TextWidth(QStringLiteral("AB"), Arial);
    int controls = 0;
    for (char16_t code = 0; code < 0xA0; ++code) {
        const bool isControl = code < 0x20 || code >= 0x7F;
        if (!isControl || code == u'\r' || code == u'\n')
            continue;
        const QString text = QStringLiteral("A") + QChar(code) + QStringLiteral("B");
        EXPECT_DOUBLE_EQ(PageCanvas::TextWidth(text, Arial), width) << int{code};
        ++controls;
    }
    EXPECT_EQ(controls, 30 + 33);
    const QString path = Pdf([](PageCanvas& page) {
        page.DrawText(QStringLiteral("A\t\u001b\u2028B"), Arial, ColorBlack, 200, 200);
    });
    EXPECT_EQ(WordsOfPdf(path).at(0).Text, QStringLiteral("AB"));
}

TEST_F(PageCanvasTest, CodesThatAreNoCharactersLeaveThePageWhole)
{
    const double width = PageCanvas::TextWidth(QStringLiteral("AB"), Arial);
    for (const char32_t code : {U'\uFDD0', U'\uFFFE', U'\uFFFF', U'\U0001FFFF', U'\U0010FFFE'}) {
        const QString text = QStringLiteral("A") + QString::fromUcs4(&code, 1) + u'B';
        EXPECT_DOUBLE_EQ(PageCanvas::TextWidth(text, Arial), width) << int(code);
        const QString path =
            Pdf([&](PageCanvas& page) { page.DrawText(text, Arial, ColorBlack, 200, 200); });
        EXPECT_EQ(WordsOfPdf(path).at(0).Text, QStringLiteral("AB"));
    }
    // Half of a surrogate pair is no character; it is shown as the replacement character.
    const QString half = QStringLiteral("A") + QChar(0xD800) + QStringLiteral("B");
    EXPECT_GT(PageCanvas::TextWidth(half, Arial), width);
}

TEST_F(PageCanvasTest, WidthGrowsExactlyWithTheSize)
{
    Font large = Arial;
    large.Size = 40;
    const QString text = QStringLiteral("Scale 123");
    EXPECT_NEAR(PageCanvas::TextWidth(text, large), 4 * PageCanvas::TextWidth(text, Arial), 1);
}

TEST_F(PageCanvasTest, TheScreenShowsTheMetricsOfThePageAtAnyScale)
{
    const auto draw = [](PageCanvas& page) {
        page.DrawText(QStringLiteral("WHW"), Arial, ColorBlack, 400, 600);
    };
    for (const double scale : {0.1, 0.25, 1.0}) {
        const QRect ink = InkOf(Screen(scale, draw));
        const double width = PageCanvas::TextWidth(QStringLiteral("WHW"), Arial);
        EXPECT_NEAR(ink.width() / scale, width, 1.5 / scale + 10) << scale;
        EXPECT_NEAR(ink.left() / scale, 400, 1.5 / scale + 10) << scale;
    }
}

TEST_F(PageCanvasTest, PaperAndScreenShowTheSame)
{
    const auto draw = [](PageCanvas& page) {
        page.DrawText(QStringLiteral("Same"), Arial, ColorBlack, 400, 600);
        page.PaintPicture(Picture::FromImage(Solid(0xFF000000)), 1000, 2000, 900, 600);
    };
    const QRect paper = InkOf(ImageOfPdf(Pdf(draw), 4));
    const QRect screen = InkOf(Screen(0.2, draw));
    EXPECT_NEAR(paper.left(), screen.left(), 1);
    EXPECT_NEAR(paper.top(), screen.top(), 1);
    EXPECT_NEAR(paper.right(), screen.right(), 1);
    EXPECT_NEAR(paper.bottom(), screen.bottom(), 1);
}

TEST_F(PageCanvasTest, ColoursAreBlueGreenRed)
{
    const QImage image = Screen(0.2, [](PageCanvas& page) {
        page.DrawText(QString(QChar(0x2588)), Font{Arial.Name, 60}, 0x00102080, 0, 0);
    });
    const QPoint inside(60, 150);
    EXPECT_EQ(image.pixel(inside), qRgb(0x80, 0x20, 0x10));
}

TEST_F(PageCanvasTest, ContentWithoutASizeOrFarOutsideLeavesThePageWhole)
{
    const QString path = Pdf([](PageCanvas& page) {
        const Picture picture = Picture::FromImage(Solid(0xFF000000));
        page.PaintPicture(picture, 0, 0, 0, 100);
        page.PaintPicture(picture, 0, 0, 1e300, 100);
        page.PaintPicture(picture, std::nan(""), 0, 100, 100);
        page.DrawText(QStringLiteral("lost"), Arial, ColorBlack, -1e38, 1e38);
        page.DrawText(QStringLiteral("tiny"), Font{Arial.Name, 0}, ColorBlack, 0, 0);
        page.DrawText(QStringLiteral("kept"), Arial, ColorBlack, 200, 200);
    });
    EXPECT_NEAR(WordOfPdf(path, QStringLiteral("kept")).XMin, 10, 0.01);
}

TEST_F(PageCanvasTest, ASinkThatTakesNoMoreFailsThePage)
{
    const auto page = PageCanvas::OnPdf(3060, 4860, [](const char*, std::size_t) { return false; });
    page->DrawText(QStringLiteral("A"), Arial, ColorBlack, 0, 0);
    try {
        page->Finish();
        ADD_FAILURE() << "the page was finished";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::PrinterError);
    }
}

TEST_F(PageCanvasTest, AnUnknownFamilyIsReplacedByOneThatIsThere)
{
    const Font unknown{QStringLiteral("No Such Family At All"), 12};
    EXPECT_GT(PageCanvas::TextWidth(QStringLiteral("text"), unknown), 100);
}

TEST_F(PageCanvasTest, FamiliesAreCountedFromOne)
{
    EXPECT_FALSE(PageCanvas::FontFamily(1).isEmpty());
    for (const int none : {0, -1, 1000000}) {
        try {
            PageCanvas::FontFamily(none);
            ADD_FAILURE() << none;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::SubscriptOutOfRange);
        }
    }
}

} // namespace vantrel::test
