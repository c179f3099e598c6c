#include "PageTest.h"
#include "drawing/CairoCanvas.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include <random>

namespace vantrel::test {

namespace {

const Font Plain{QStringLiteral("DejaVu Sans"), 14};
constexpr int PixelsPerPoint = 8;
constexpr double PixelsPerTwip = PixelsPerPoint / 20.0;

Font Styled(bool bold, bool italic, bool underline, bool strikethrough)
{
    return {Plain.Name, Plain.Size, bold, italic, underline, strikethrough};
}

QStringList AllScripts()
{
    QStringList texts;
    for (const char* text :
         {"AVATo Wa Ty", "Ünïcödé Ťěšť ß€", "office affluent fi", "Ελληνικά", "Кириллица",
          "e\xcc\x81 n\xcc\x83 o\xcc\x88\xcc\xa3", "שלום עולם 123", "سلام 123", "№ ½ ™ ©"})
        texts.append(QString::fromUtf8(text));
    return texts;
}

QString ProducerOf(const QString& path)
{
    const QStringList lines = OutputOf(QStringLiteral("pdfinfo"), {path}).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (line.startsWith(QLatin1StringView("Producer:")))
            return line.sliced(9).trimmed();
    }
    return {};
}

/// All text of a page, with its line ends and blanks as blanks.
QString TextOf(const QString& path)
{
    return OutputOf(QStringLiteral("pdftotext"), {path, QStringLiteral("-")}).simplified();
}

class PdfTextTest : public PageTest
{
protected:
    QString PdfOf(const QString& text, const Font& font, const QString& name)
    {
        return Pdf([&](PageCanvas& page) { page.DrawText(text, font, ColorBlack, 200, 600); },
                   name);
    }
    QString PdfOf(const QString& text, const Font& font = Plain)
    {
        return PdfOf(text, font, QStringLiteral("card.pdf"));
    }

    void ExpectPaperAsScreen(const QString& text, const Font& font)
    {
        const QImage screen = Screen(PixelsPerTwip, [&](PageCanvas& page) {
            page.DrawText(text, font, ColorBlack, 200, 600);
        });
        const QImage paper = ImageOfPdf(PdfOf(text, font), PixelsPerPoint);
        ASSERT_EQ(paper.size(), screen.size());
        // The two renderers smooth edges differently; a shift of half a point still differs more
        // than that.
        const QImage shifted = screen.copy(QRect(QPoint(4, 4), screen.size()));
        EXPECT_LT(InkApart(screen, paper), InkApart(shifted, paper) / 2) << text.toStdString();
    }
};

} // namespace

TEST_F(PdfTextTest, EveryScriptStandsOnPaperAsOnScreen)
{
    for (const QString& text : AllScripts())
        ExpectPaperAsScreen(text, Plain);
    for (const QString& family :
         {QStringLiteral("Liberation Sans"), QStringLiteral("Liberation Serif"),
          QStringLiteral("Liberation Mono")})
        ExpectPaperAsScreen(QStringLiteral("AVATo Wa 0123"), {family, 14});
}

TEST_F(PdfTextTest, EveryStyleStandsOnPaperAsOnScreen)
{
    for (int styles = 0; styles < 16; ++styles)
        ExpectPaperAsScreen(
            QStringLiteral("Style gy"),
            Styled((styles & 1) != 0, (styles & 2) != 0, (styles & 4) != 0, (styles & 8) != 0));
}

TEST_F(PdfTextTest, TheStationsOwnPdfShowsWhatCairoWouldShow)
{
    const QString path = m_folder.filePath(QStringLiteral("cairo.pdf"));
    for (const QString& text : AllScripts()) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const std::unique_ptr<PageCanvas> cairo =
            CairoCanvas::OnPdf(153, 243, [&file](const char* bytes, std::size_t count) {
                return file.write(bytes, static_cast<qint64>(count)) == static_cast<qint64>(count);
            });
        cairo->DrawText(text, Plain, ColorBlack, 200, 600);
        cairo->Finish();
        file.close();
        const double apart =
            InkApart(ImageOfPdf(PdfOf(text), PixelsPerPoint), ImageOfPdf(path, PixelsPerPoint));
        // cairo rounds the widths of glyphs, which adds up to a tenth of a point along a line.
        EXPECT_LT(apart, 0.1) << text.toStdString();
    }
}

TEST_F(PdfTextTest, TextIsReadBackInTheOrderItWasWritten)
{
    for (const char* text : {"AVATo Wa Ty", "office affluent fi", "Ελληνικά ΑΒΕ ABE",
                             "Кириллица АВЕ ABE", "100 % (a/b) <c> \\d"}) {
        EXPECT_EQ(TextOf(PdfOf(QString::fromUtf8(text))).toStdString(), text);
    }
}

TEST_F(PdfTextTest, ALongLineEndsWhereItWasMeasured)
{
    const QString text = QStringLiteral("AVATo_Wa_Ty_").repeated(12);
    const Font small{Plain.Name, 1.7};
    const PdfWord word = WordOfPdf(PdfOf(text, small), text);
    EXPECT_NEAR(word.XMax - word.XMin, PageCanvas::TextWidth(text, small) / 20, 0.005);
}

TEST_F(PdfTextTest, TextOfSeveralGlyphsCanBeReadBack)
{
    // Decomposed letters: one character may be drawn by two glyphs, or two by one.
    const QString text = QString::fromUtf8("a\xcc\x8a\xcc\xa3 q\xcc\x83");
    EXPECT_EQ(TextOf(PdfOf(text)).normalized(QString::NormalizationForm_C),
              text.normalized(QString::NormalizationForm_C));
}

TEST_F(PdfTextTest, ACharacterOfAnotherFontIsBorrowed)
{
    // Liberation Sans has no chess pieces.
    const QString path =
        PdfOf(QString::fromUtf8("King ♔ here"), {QStringLiteral("Liberation Sans"), 14});
    EXPECT_EQ(TextOf(path), QString::fromUtf8("King ♔ here"));
    const QString fonts = OutputOf(QStringLiteral("pdffonts"), {path});
    EXPECT_TRUE(fonts.contains(QStringLiteral("+LiberationSans"))) << fonts.toStdString();
    EXPECT_TRUE(fonts.contains(QStringLiteral("+DejaVuSans"))) << fonts.toStdString();
}

TEST_F(PdfTextTest, ACharacterOfNoFontIsABoxAndTheRestCanBeRead)
{
    const QString text = QStringLiteral("before ") + QChar(0xF8D0) + QStringLiteral(" after");
    const QString path = PdfOf(text);
    EXPECT_NEAR(WordOfPdf(path, QStringLiteral("before")).XMin, 10, 0.1);
    EXPECT_GT(WordOfPdf(path, QStringLiteral("after")).XMin, 20);
    ExpectPaperAsScreen(text, Plain);
}

TEST_F(PdfTextTest, AFaceThatIsSlantedByTheFontSystemIsSlantedOnPaper)
{
    // This family has no italic face here.
    const Font italic{QStringLiteral("DejaVu Sans Mono"), 14, false, true};
    ExpectPaperAsScreen(QStringLiteral("Illi"), italic);
    EXPECT_EQ(TextOf(PdfOf(QStringLiteral("Illi"), italic)), QStringLiteral("Illi"));
}

TEST_F(PdfTextTest, PlainTextIsWrittenByTheStationItself)
{
    EXPECT_TRUE(ProducerOf(PdfOf(QStringLiteral("plain"))).startsWith(QStringLiteral("Vantrel")));
}

TEST_F(PdfTextTest, LaterCardsDoNotNeedTheGlyphsOfEarlierOnes)
{
    // More characters than one font subset keeps, so that the subset is begun again several times.
    QStringList expected;
    QStringList paths;
    for (int card = 0; card < 20; ++card) {
        QString text;
        for (char16_t code = 0x410; code < 0x410 + 64; code += 2)
            text += QChar(code + card % 2);
        for (int i = 0; i < 30; ++i)
            text += QChar(static_cast<char16_t>(0x100 + (card * 30 + i) % 0x14f));
        expected.append(text);
        paths.append(PdfOf(text, {Plain.Name, 2}, QStringLiteral("card-%1.pdf").arg(card)));
    }
    for (int card = 0; card < 20; ++card)
        EXPECT_EQ(TextOf(paths[card]), expected[card]) << card;
}

TEST_F(PdfTextTest, AnyTextMakesAPageThatCanBeRead)
{
    // A host may send any bytes; these include combining characters, half surrogate pairs and
    // control characters.
    std::mt19937 random(20261121);
    std::uniform_int_distribution<int> code(1, 0xFFFF);
    std::uniform_int_distribution<int> common(0x20, 0x700);
    for (int card = 0; card < 24; ++card) {
        const QString path = Pdf([&](PageCanvas& page) {
            for (int line = 0; line < 20; ++line) {
                QString text;
                for (int i = 0; i < 12; ++i)
                    text +=
                        QChar(static_cast<char16_t>(card % 2 != 0 ? code(random) : common(random)));
                page.DrawText(text, {Plain.Name, 8}, ColorBlack, 100, line * 200);
            }
            page.DrawText(QStringLiteral("end"), Plain, ColorBlack, 100, 4200);
        });
        EXPECT_NEAR(WordOfPdf(path, QStringLiteral("end")).YMin, 210, 1) << card;
    }
}

TEST_F(PdfTextTest, AFontIsEmbeddedOnceForAllItsSizes)
{
    const QString path = Pdf([](PageCanvas& page) {
        for (const double size : {6.0, 9.5, 20.0})
            page.DrawText(QStringLiteral("size"), {Plain.Name, size}, ColorBlack, 200, size * 100);
    });
    EXPECT_EQ(OutputOf(QStringLiteral("pdffonts"), {path}).count(QStringLiteral("DejaVuSans")), 1);
    EXPECT_EQ(WordsOfPdf(path).size(), 3U);
}

TEST_F(PdfTextTest, EachTextHasItsOwnColour)
{
    const QImage page = ImageOfPdf(Pdf([](PageCanvas& canvas) {
        const QString block(QChar(0x2588));
        canvas.DrawText(block, {Plain.Name, 60}, 0x00102080, 0, 0);
        canvas.DrawText(block, {Plain.Name, 60}, 0x00F0E0D0, 0, 2400);
    }));
    EXPECT_EQ(page.pixel(60, 150), qRgb(0x80, 0x20, 0x10));
    EXPECT_EQ(page.pixel(60, 630), qRgb(0xD0, 0xE0, 0xF0));
}

TEST_F(PdfTextTest, WhatIsDrawnLaterCoversWhatWasDrawnBefore)
{
    const QImage page = ImageOfPdf(Pdf([](PageCanvas& canvas) {
        const QString block(QChar(0x2588));
        canvas.DrawText(block, {Plain.Name, 60}, ColorBlack, 0, 0);
        canvas.PaintPicture(Picture::FromImage(Solid(0xFF00FF00)), 0, 600, 1000, 400);
        canvas.DrawText(block, {Plain.Name, 10}, 0x000000FF, 200, 600);
    }));
    EXPECT_EQ(page.pixel(60, 100), 0xFF000000U);
    EXPECT_EQ(page.pixel(20, 150), 0xFF00FF00U);
    EXPECT_EQ(page.pixel(50, 150), 0xFFFF0000U);
}

} // namespace vantrel::test
