#include "PageTest.h"
#include "drawing/CairoCanvas.h"
#include "support/Memory.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include <QFileInfo>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

const Font Plain{QStringLiteral("Liberation Sans"), 10};

/// In twips.
constexpr double Left = 200;
constexpr double Right = 2200;
constexpr double Top = 600;

/// Many different words. Their characters are replaced one for one, by digits unless others are
/// given.
QString Words(int first, int count, const QString& characters = QStringLiteral("02345678"))
{
    QStringList words;
    for (int number = first; number < first + count; ++number) {
        QString word;
        // As many indexes as characters, since each of the eight may need more than one code unit.
        const qsizetype width = characters.size() / 8;
        for (int digit = 0, rest = number; digit < 7; ++digit, rest /= 8)
            word.prepend(characters.sliced((rest % 8) * width, width));
        words.append(word);
    }
    return words.join(QLatin1Char(' '));
}

/// The beginning and the end of a text, and the parts of it that are visible at a card's left and
/// right edge.
struct Script
{
    const char* Name;
    QString Long;
    QString SeenAtLeft;
    QString SeenAtRight;
};

constexpr int ManyWords = 5'000;
constexpr int SomeWords = 60;

Script FromLeft(const char* name, const QString& characters)
{
    return {name, Words(0, ManyWords, characters), Words(0, SomeWords, characters),
            Words(ManyWords - SomeWords, SomeWords, characters)};
}

Script FromRight(const char* name, const QString& characters)
{
    const Script turned = FromLeft(name, characters);
    return {name, turned.Long, turned.SeenAtRight, turned.SeenAtLeft};
}

std::vector<Script> Scripts()
{
    const QString hebrew = QStringLiteral("\u05d0\u05d1\u05d2\u05d3\u05d4\u05e9\u05dc\u05de");
    const QString arabic = QStringLiteral("\u0628\u062a\u0633\u0634\u0639\u0644\u0645\u0647");
    const QString name = QStringLiteral("Name ");
    const Script inside = FromRight("", hebrew);
    return {FromLeft("Latin", QStringLiteral("AVToWfie")),
            FromLeft("letters with marks",
                     QStringLiteral("e\u0301a\u0308o\u0302u\u0301i\u0300n\u0303c\u0327s\u030c")),
            FromLeft("pictures of two codes",
                     QString::fromUcs4(U"\U0001F600\U0001F601\U0001F602\U0001F603"
                                       U"\U0001F604\U0001F605\U0001F606\U0001F607")),
            FromRight("Hebrew", hebrew),
            FromRight("Arabic", arabic),
            {"Hebrew in a line from the left", name + inside.Long, name + inside.SeenAtLeft,
             name + inside.SeenAtRight}};
}

class LongText : public PageTest
{
protected:
    /// The same drawing on the screen, on a page of the station's own and on one of cairo's.
    template <typename Draw>
    std::vector<QImage> OnAll(Draw draw)
    {
        const QString path = m_folder.filePath(QStringLiteral("cairo.pdf"));
        {
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            const auto page =
                CairoCanvas::OnPdf(153, 243, [&file](const char* bytes, std::size_t count) {
                    return file.write(bytes, static_cast<qint64>(count)) ==
                           static_cast<qint64>(count);
                });
            draw(static_cast<PageCanvas&>(*page));
            page->Finish();
        }
        return {Screen(0.2, draw), ImageOfPdf(Pdf(draw)), ImageOfPdf(path)};
    }

    /// Two drawings of one text, whose lengths may differ by an invisible amount.
    static void ExpectSameInk(const QImage& one, const QImage& other, const char* what)
    {
        ASSERT_EQ(one.size(), other.size());
        EXPECT_FALSE(InkOf(other).isNull()) << what;
        int differing = 0;
        int inked = 0;
        for (int y = 0; y < one.height(); ++y) {
            for (int x = 0; x < one.width(); ++x) {
                const int gray = qGray(one.pixel(x, y));
                const int otherGray = qGray(other.pixel(x, y));
                differing += std::abs(gray - otherGray) > 128 ? 1 : 0;
                inked += otherGray < 128 ? 1 : 0;
            }
        }
        EXPECT_LE(differing, inked / 50) << what;
    }
};

TEST_F(LongText, AtTheLeftEdgeShowsWhatAShortOneShows)
{
    for (const Script& script : Scripts()) {
        const auto draw = [](const QString& text) {
            return [&text](PageCanvas& page) { page.DrawText(text, Plain, ColorBlack, Left, Top); };
        };
        const auto seen = OnAll(draw(script.Long));
        const auto wanted = OnAll(draw(script.SeenAtLeft));
        for (std::size_t canvas = 0; canvas < seen.size(); ++canvas)
            ExpectSameInk(seen[canvas], wanted[canvas], script.Name);
    }
}

TEST_F(LongText, AtTheRightEdgeShowsWhatAShortOneShows)
{
    for (const Script& script : Scripts()) {
        const auto draw = [](const QString& text) {
            return [&text](PageCanvas& page) {
                page.DrawText(text, Plain, ColorBlack, Right - PageCanvas::TextWidth(text, Plain),
                              Top);
            };
        };
        const auto seen = OnAll(draw(script.Long));
        const auto wanted = OnAll(draw(script.SeenAtRight));
        for (std::size_t canvas = 0; canvas < seen.size(); ++canvas)
            ExpectSameInk(seen[canvas], wanted[canvas], script.Name);
    }
}

/// In Liberation Sans all digits are as wide, and a blank is half of that.
double WidthOfWords(int count)
{
    constexpr double digit = 1139.0 / 2048 * 10;
    constexpr double blank = 569.0 / 2048 * 10;
    return count * 7 * digit + (count - 1) * blank;
}

TEST_F(LongText, IsMeasuredAtEveryLength)
{
    for (const int count : {10, 512, 513, 5'000, 60'000, 500'000}) {
        const double width = PageCanvas::TextWidth(Words(0, count), Plain);
        EXPECT_NEAR(width / 20 / WidthOfWords(count), 1, 1e-6) << count << " words";
    }
}

TEST_F(LongText, InTheMiddleShowsItsMiddleAtEveryLength)
{
    for (const int count : {11, 601, 5'001, 60'001, 500'001}) {
        const QString text = Words(0, count);
        const double middle = 76.5;
        const double left = middle * 20 - PageCanvas::TextWidth(text, Plain) / 2;
        const QString path =
            Pdf([&](PageCanvas& page) { page.DrawText(text, Plain, ColorBlack, left, Top); });
        const PdfWord word = WordOfPdf(path, Words(count / 2, 1));
        EXPECT_NEAR((word.XMin + word.XMax) / 2, middle, 0.05) << count << " words";
    }
}

TEST_F(LongText, BeginsAtTheRightPlaceInAnyLineOfMany)
{
    const QString lines = QString(QStringLiteral("x\r")).repeated(3) + Words(0, ManyWords) +
                          QStringLiteral("\rend") + QString(QLatin1Char('\r')).repeated(1'000'000);
    const QString path =
        Pdf([&](PageCanvas& page) { page.DrawText(lines, Plain, ColorBlack, Left, 0); });
    const double line = PageCanvas::TextHeight(QStringLiteral("x"), Plain) / 20;
    EXPECT_NEAR(WordOfPdf(path, Words(0, 1)).XMin, Left / 20, 0.01);
    EXPECT_NEAR(WordOfPdf(path, Words(0, 1)).YMin, 3 * line, 0.1);
    EXPECT_NEAR(WordOfPdf(path, QStringLiteral("end")).YMin, 4 * line, 0.1);
    EXPECT_NEAR(PageCanvas::TextHeight(lines, Plain) / 20, 1'000'005 * line, 1);
}

TEST_F(LongText, WithoutWidthLeavesTheNextTextReadable)
{
    const QString nothing = QString(QChar(0x00AD)).repeated(1'000'000);
    const QString path = Pdf([&](PageCanvas& page) {
        page.DrawText(nothing + QStringLiteral("seen"), Plain, ColorBlack, Left, Top);
    });
    EXPECT_NEAR(WordOfPdf(path, QStringLiteral("seen")).XMin, Left / 20, 0.01);
}

TEST_F(LongText, TakesLittleMemoryAndGivesItBack)
{
    const QString text = Words(0, 1'000'000);
    const auto draw = [&text](PageCanvas& page) {
        page.DrawText(text, Plain, ColorBlack, Left, Top);
        page.DrawText(text, Plain, ColorBlack, Right - PageCanvas::TextWidth(text, Plain), Top);
    };
    Pdf([](PageCanvas& page) { page.DrawText(Words(0, 9), Plain, ColorBlack, Left, Top); });
    const qint64 before = UsedMemory();
    const PeakMemory peak;
    const QString path = Pdf(draw);
    Screen(0.2, draw);
    EXPECT_LT(peak.Grown(), 64 * MiB);
    EXPECT_LT(UsedMemory() - before, 8 * MiB);
    EXPECT_LT(QFileInfo(path).size(), MiB);
}

} // namespace
} // namespace vantrel::test
