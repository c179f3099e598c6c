#include "BookTest.h"
#include "support/Memory.h"
#include <QScopeGuard>
#include <QSet>

namespace vantrel::test {

namespace {

class BookPicturesTest : public BookTest
{
protected:
    QString Saved(const QImage& image, const QString& name) const
    {
        QString path = m_folder.filePath(name);
        EXPECT_TRUE(image.save(path, nullptr, 90));
        return path;
    }
};

void Paint(PageCanvas& page, const Picture& picture)
{
    page.PaintPicture(picture, 200, 200, 1000, 1000);
}

} // namespace

TEST_F(BookPicturesTest, ABackgroundOfAllPagesStandsOnceAndEachPhotoOnce)
{
    const Picture background = LoadPicture(Saved(Pattern(0, 200), QStringLiteral("back.png")));
    constexpr int pages = 300;
    const QString book = BookOf(pages, [&](PageCanvas& page, int number) {
        page.PaintPicture(background, 0, 0, 3060, 4860);
        const QString photo =
            Saved(Pattern(number + 1), QStringLiteral("photo-%1.jpg").arg(number));
        Paint(page, LoadPicture(photo));
    });
    ExpectValidPdf(book);
    const QStringList objects = PictureObjectsOfPdf(book);
    EXPECT_EQ(objects.size(), 2 * pages);
    EXPECT_EQ(objects.count(objects.constFirst()), pages);
    EXPECT_EQ(QSet<QString>(objects.begin(), objects.end()).size(), pages + 1);
    for (const int page : {1, 150, 300}) {
        const QImage seen = ImageOfPdf(book, 1, page);
        const QImage alone = ImageOfPdf(Pdf([&](PageCanvas& canvas) {
                                            canvas.PaintPicture(background, 0, 0, 3060, 4860);
                                            const QString photo =
                                                QStringLiteral("photo-%1.jpg").arg(page - 1);
                                            Paint(canvas, LoadPicture(m_folder.filePath(photo)));
                                        }),
                                        1);
        EXPECT_EQ(seen, alone) << page;
    }
}

TEST_F(BookPicturesTest, TheSamePhotoInTwoFilesStandsOnce)
{
    for (const auto* kind : {"jpg", "png"}) {
        const QString ending = QString::fromLatin1(kind);
        const Picture one = LoadPicture(Saved(Pattern(3), QStringLiteral("one.") + ending));
        const Picture other = LoadPicture(Saved(Pattern(3), QStringLiteral("other.") + ending));
        ASSERT_FALSE(one == other);
        const QString book = BookOf(
            4, [&](PageCanvas& page, int number) { Paint(page, number % 2 == 0 ? one : other); });
        const QStringList objects = PictureObjectsOfPdf(book);
        EXPECT_EQ(objects.size(), 4);
        EXPECT_EQ(objects.count(objects.constFirst()), 4) << kind;
    }
}

TEST_F(BookPicturesTest, PicturesThatDifferInShapeOrOpacityAreNotTakenForEachOther)
{
    QImage clear(4, 6, QImage::Format_ARGB32_Premultiplied);
    clear.fill(Qt::transparent);
    QImage black(4, 6, QImage::Format_RGB32);
    black.fill(0);
    QImage wide(6, 4, QImage::Format_RGB32);
    wide.fill(0);
    const std::vector<QImage> images{clear, black, wide};
    const QString book = BookOf(3, [&](PageCanvas& page, int number) {
        Paint(page, Picture::FromImage(images[static_cast<std::size_t>(number)]));
    });
    const QStringList objects = PictureObjectsOfPdf(book);
    EXPECT_EQ(QSet<QString>(objects.begin(), objects.end()).size(), 3);
    EXPECT_EQ(ImageOfPdf(book, 1, 1).pixel(30, 30), 0xFFFFFFFFU);
    EXPECT_EQ(ImageOfPdf(book, 1, 2).pixel(30, 30), 0xFF000000U);
}

TEST_F(BookPicturesTest, TheCacheOfPicturesKeepsToItsLimit)
{
    const auto restore = qScopeGuard([] { LimitPictureCache(256 * 1024); });
    LimitPictureCache(1024);
    const QString often = Saved(Solid(0xFFFFFFFF, 200, 200), QStringLiteral("often.png"));
    const Picture kept = LoadPicture(often);
    const qint64 before = UsedMemory();
    // Each takes 160 KB of memory, and as much again for a page.
    for (int number = 0; number < 40; ++number) {
        const QString name = QStringLiteral("photo-%1.png").arg(number);
        LoadPicture(Saved(Solid(0xFF000000U + static_cast<QRgb>(number), 200, 200), name));
        EXPECT_EQ(LoadPicture(often), kept);
    }
    EXPECT_LT(UsedMemory() - before, MiB + MiB / 2);
}

TEST_F(BookPicturesTest, MemoryStaysFlatHoweverManyPhotosPass)
{
    QFile file(BookPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    PdfBook book([&file](const char* bytes, std::size_t count) {
        return file.write(bytes, static_cast<qint64>(count)) == static_cast<qint64>(count);
    });
    const auto addPages = [&](int from, int to) {
        for (int number = from; number < to; ++number) {
            const auto page = book.NewPage(3060, 4860);
            Write(*page, QStringLiteral("Card %1").arg(number));
            Paint(*page,
                  Picture::FromImage(Solid(0xFF000000U + static_cast<QRgb>(number), 100, 100)));
            page->Finish();
        }
    };
    // By then all caches are as full as they will be.
    addPages(0, 1200);
    const PeakMemory peak;
    const qint64 before = UsedMemory();
    addPages(1200, 4200);
    // The pixels of these photos alone are 120 MB.
    EXPECT_LT(peak.Grown(), 8 * MiB);
    // Twenty-four bytes for each page and its photo, in blocks.
    EXPECT_LT(UsedMemory() - before, 256 * 1024);
    book.Finish();
    file.close();
    EXPECT_EQ(PagesOfPdf(BookPath()), 4200);
}

} // namespace vantrel::test
