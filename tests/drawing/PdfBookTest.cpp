#include "BookTest.h"
#include "base/Failure.h"
#include "support/FailureOf.h"
#include "support/Memory.h"
#include <QRegularExpression>

namespace vantrel::test {

namespace {

class PdfBookTest : public BookTest
{
protected:
    /// Expects that each page of a book looks like the same page in a file of its own.
    void ExpectPagesAsAlone(const std::vector<Draw>& pages, double mostApart)
    {
        const QString book =
            BookOf(static_cast<int>(pages.size()), [&](PageCanvas& page, int number) {
                pages[static_cast<std::size_t>(number)](page);
            });
        ExpectValidPdf(book);
        for (std::size_t i = 0; i < pages.size(); ++i) {
            const QImage inBook = ImageOfPdf(book, 8, static_cast<int>(i) + 1);
            const QImage alone = ImageOfPdf(Pdf(pages[i]), 8);
            ASSERT_EQ(inBook.size(), alone.size());
            if (mostApart == 0)
                EXPECT_EQ(inBook, alone) << i;
            else
                EXPECT_LT(InkApart(inBook, alone), mostApart) << i;
        }
    }

    /// The rows that `pdffonts` has for a font of this name.
    static qsizetype FontsNamed(const QString& path, const QString& name)
    {
        return OutputOf(QStringLiteral("pdffonts"), {path}).count(name);
    }
};

const Font PostScript{QStringLiteral("Nimbus Sans"), 14};
const Font Slanted{QStringLiteral("DejaVu Sans Mono"), 14, false, true};

QString PageText(int number)
{
    return QStringLiteral("Card number %1").arg(number);
}

} // namespace

TEST_F(PdfBookTest, ABookOfOnePageIsThatPage)
{
    const QString book =
        BookOf(1, [](PageCanvas& page, int) { Write(page, QStringLiteral("only")); });
    ExpectValidPdf(book);
    EXPECT_EQ(TextsOfPages(book), QStringList(QStringLiteral("only")));
    EXPECT_EQ(PageSizeOfPdf(book), QStringLiteral("153 x 243"));
}

TEST_F(PdfBookTest, EveryReaderAcceptsBooksOfAnyLength)
{
    // Nodes of the page tree have 64 children.
    for (const int pages : {2, 64, 65, 300, 64 * 64 + 1}) {
        const QString book =
            BookOf(pages, [](PageCanvas& page, int number) { Write(page, PageText(number)); });
        ExpectValidPdf(book);
        QStringList expected;
        for (int number = 0; number < pages; ++number)
            expected.append(PageText(number));
        EXPECT_EQ(TextsOfPages(book), expected) << pages;
    }
}

TEST_F(PdfBookTest, EachPageHasItsOwnSize)
{
    QByteArray bytes;
    PdfBook book([&](const char* more, std::size_t count) {
        bytes.append(more, static_cast<qsizetype>(count));
        return true;
    });
    QStringList expected;
    for (int points = 100; points < 110; ++points) {
        book.NewPage(points * 20, 4860)->Finish();
        expected.append(QStringLiteral("%1 x 243").arg(points));
    }
    book.Finish();
    QFile file(BookPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    ExpectValidPdf(BookPath());
    EXPECT_EQ(SizesOfPages(BookPath()), expected);
}

TEST_F(PdfBookTest, PagesLookAsInFilesOfTheirOwn)
{
    const QString photo = m_folder.filePath(QStringLiteral("photo.jpg"));
    ASSERT_TRUE(Pattern(7, 80).save(photo, nullptr, 95));
    std::vector<Draw> pages;
    for (const char* text : {"AVATo Wa Ty", "Ünïcödé Ťěšť ß€", "Ελληνικά", "שלום עולם 123",
                             "e\xcc\x81 n\xcc\x83 o\xcc\x88\xcc\xa3"}) {
        pages.emplace_back([=](PageCanvas& page) {
            Font font{QStringLiteral("Liberation Sans"), 14};
            Write(page, QString::fromUtf8(text), font);
            font.Bold = font.Underline = true;
            page.DrawText(QString::fromUtf8(text), font, 0x00C02010, 200, 1200);
            page.PaintPicture(LoadPicture(photo), 300, 1800, 900, 1200);
            page.PaintPicture(Picture::FromImage(Solid(0x80FF0000)), 600, 2000, 1000, 900);
        });
    }
    ExpectPagesAsAlone(pages, 0);
}

TEST_F(PdfBookTest, FontsThatAreNoPlainOutlinesLookAsInFilesOfTheirOwn)
{
    // PostScript outlines, a face that the font system slants, and a character that no font has.
    std::vector<Draw> pages{
        [](PageCanvas& page) { Write(page, QStringLiteral("Office affluent"), PostScript); },
        [](PageCanvas& page) { Write(page, QStringLiteral("Illi gy"), Slanted); },
        [](PageCanvas& page) { Write(page, QStringLiteral("a ") + QChar(0xF8D0)); },
        [](PageCanvas& page) {
            page.PaintPicture(Picture::FromImage(Solid(0xFF00FF00)), 0, 0, 2000, 2000);
            page.DrawText(QStringLiteral("over"), PostScript, 0x000000FF, 100, 100);
            Write(page, QStringLiteral("plain"));
        },
        [](PageCanvas& page) { Write(page, QString::fromUtf8("Ünïcödé شكرا"), PostScript); },
    };
    // cairo rounds places differently on a page of another height.
    ExpectPagesAsAlone(pages, 0.1);
}

TEST_F(PdfBookTest, TextInEveryFontIsReadBackFromItsPage)
{
    const std::vector<std::pair<QString, Font>> texts{
        {QStringLiteral("Plain outlines"), {QStringLiteral("DejaVu Sans"), 14}},
        {QStringLiteral("Office (affluent) \\ ü"), PostScript},
        {QStringLiteral("Illi"), Slanted},
        {QString::fromUtf8("Кириллица АВЕ"), {QStringLiteral("DejaVu Sans"), 14}},
        {QString::fromUtf8("King ♔ here"), {QStringLiteral("Liberation Sans"), 14}},
    };
    const QString book = BookOf(static_cast<int>(texts.size()), [&](PageCanvas& page, int number) {
        const auto& [text, font] = texts[static_cast<std::size_t>(number)];
        Write(page, text, font);
    });
    const QStringList read = TextsOfPages(book);
    ASSERT_EQ(read.size(), static_cast<qsizetype>(texts.size()));
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(read[static_cast<qsizetype>(i)].normalized(QString::NormalizationForm_KC),
                  texts[i].first);
}

TEST_F(PdfBookTest, AFontIsEmbeddedOnceWithTheGlyphsOfAllPages)
{
    // Far more characters than the subset of a single card keeps.
    QStringList expected;
    const QString book = BookOf(40, [&](PageCanvas& page, int number) {
        QString text;
        for (int i = 0; i < 20; ++i)
            text += QChar(static_cast<char16_t>(0x100 + (number * 7 + i) % 0x14f));
        Write(page, text, {QStringLiteral("DejaVu Sans"), 4});
        expected.append(text);
    });
    EXPECT_EQ(FontsNamed(book, QStringLiteral("+DejaVuSans")), 1);
    EXPECT_EQ(TextsOfPages(book), expected);
    ExpectValidPdf(book);
}

TEST_F(PdfBookTest, ALineDrawnByCairoStandsOnceForAllPagesThatShowIt)
{
    const auto size = [&](int pages) {
        return QFile(BookOf(pages,
                            [](PageCanvas& page, int) {
                                Write(page, QStringLiteral("The same label"), PostScript);
                            }))
            .size();
    };
    const qint64 one = size(1);
    EXPECT_LT(size(21) - one, 20 * 500);
    EXPECT_EQ(FontsNamed(BookPath(), QStringLiteral("NimbusSans")), 1);
}

TEST_F(PdfBookTest, ALineDrawnByCairoKeepsItsColourOnEachPage)
{
    const QString book = BookOf(2, [](PageCanvas& page, int number) {
        page.DrawText(QStringLiteral("I"), {PostScript.Name, 200, true},
                      number == 0 ? 0x000000FF : 0x00FF0000, 0, 0);
    });
    const auto colourOf = [&](int number) {
        const QImage page = ImageOfPdf(book, 1, number);
        return page.pixel(27, 100);
    };
    EXPECT_EQ(colourOf(1), qRgb(255, 0, 0));
    EXPECT_EQ(colourOf(2), qRgb(0, 0, 255));
}

TEST_F(PdfBookTest, AnyTextMakesABookThatCanBeRead)
{
    const QString book = BookOf(200, [](PageCanvas& page, int number) {
        QString text;
        for (int i = 0; i < 40; ++i)
            text += QChar(static_cast<char16_t>(1 + (number * 40 + i) * 7919 % 0xFFFF));
        Write(page, text, {QStringLiteral("DejaVu Sans"), 3});
        page.DrawText(QStringLiteral("end"), PostScript, ColorBlack, 100, 4200);
    });
    ExpectValidPdf(book);
    const QStringList texts = TextsOfPages(book);
    ASSERT_EQ(texts.size(), 200);
    for (const QString& text : texts)
        EXPECT_TRUE(text.split(QLatin1Char(' ')).contains(QStringLiteral("end")));
}

TEST_F(PdfBookTest, APageThatIsNotFinishedLeavesNoTrace)
{
    const QString book =
        BookOf(2, [](PageCanvas& page, int number) { Write(page, PageText(number)); });
    const auto lengthWith = [](bool abandoned) {
        qsizetype length = 0;
        PdfBook written([&](const char*, std::size_t count) {
            length += static_cast<qsizetype>(count);
            return true;
        });
        if (abandoned)
            Write(*written.NewPage(3060, 4860), QStringLiteral("abandoned"));
        const auto page = written.NewPage(3060, 4860);
        Write(*page, QStringLiteral("kept"));
        page->Finish();
        written.Finish();
        return length;
    };
    EXPECT_EQ(lengthWith(true), lengthWith(false));
}

TEST_F(PdfBookTest, ABookWithoutAPageFails)
{
    PdfBook book([](const char*, std::size_t) { return true; });
    EXPECT_EQ(FailureOf([&] { book.Finish(); }), FailureNumber::PrinterError);
}

TEST_F(PdfBookTest, NothingFollowsTheEndOfABook)
{
    qsizetype length = 0;
    PdfBook book([&](const char*, std::size_t count) {
        length += static_cast<qsizetype>(count);
        return true;
    });
    book.NewPage(3060, 4860)->Finish();
    book.Finish();
    const qsizetype before = length;
    EXPECT_EQ(FailureOf([&] { book.NewPage(3060, 4860)->Finish(); }), FailureNumber::PrinterError);
    EXPECT_EQ(FailureOf([&] { book.Finish(); }), FailureNumber::PrinterError);
    EXPECT_EQ(length, before);
}

TEST_F(PdfBookTest, ASinkThatFailsEndsTheBookWithItsReason)
{
    for (const qsizetype room : {0, 100, 700, 1500}) {
        qsizetype length = 0;
        PdfBook book([&](const char*, std::size_t count) {
            if (length > room)
                throw Failure(FailureNumber::PrinterError, QStringLiteral("Printer error: full"));
            length += static_cast<qsizetype>(count);
            return true;
        });
        QString reason;
        for (int i = 0; i < 20; ++i) {
            try {
                book.NewPage(3060, 4860)->Finish();
            } catch (const Failure& failure) {
                reason = failure.Text();
            }
        }
        EXPECT_EQ(reason, QStringLiteral("Printer error: full"));
        const qsizetype before = length;
        EXPECT_EQ(FailureOf([&] { book.Finish(); }), FailureNumber::PrinterError);
        EXPECT_EQ(length, before);
    }
}

} // namespace vantrel::test
