#pragma once

#include "PageTest.h"
#include "drawing/pdf/PdfBook.h"
#include "support/PdfReading.h"
#include "support/Print.h"

namespace vantrel::test {

/// Books of cards in a temporary folder.
class BookTest : public PageTest
{
protected:
    using Draw = std::function<void(PageCanvas&)>;

    QString BookPath() const { return m_folder.filePath(QStringLiteral("book.pdf")); }

    /// Writes pages with the size of a card, one for each call of `draw` with numbers from 0 on.
    /// @return the path of the book
    QString BookOf(int pages, const std::function<void(PageCanvas&, int)>& draw) const
    {
        QFile file(BookPath());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        PdfBook book([&file](const char* bytes, std::size_t count) {
            return file.write(bytes, static_cast<qint64>(count)) == static_cast<qint64>(count);
        });
        for (int number = 0; number < pages; ++number) {
            const auto page = book.NewPage(3060, 4860);
            draw(*page, number);
            page->Finish();
        }
        EXPECT_EQ(book.PageCount(), pages);
        book.Finish();
        return BookPath();
    }

    static void Write(PageCanvas& page, const QString& text,
                      const Font& font = {QStringLiteral("DejaVu Sans"), 14})
    {
        page.DrawText(text, font, ColorBlack, 200, 600);
    }

    /// A picture that differs for each number.
    static QImage Pattern(int number, int size = 24)
    {
        QImage image(size, size, QImage::Format_RGB32);
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x)
                image.setPixel(x, y, qRgb(number % 256, number / 256 + x, x * y % 256));
        }
        return image;
    }
};

} // namespace vantrel::test
