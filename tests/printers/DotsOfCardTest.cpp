#include "printers/CupsPrinter.h"
#include "printers/PdfPrinter.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include "support/PrivateCups.h"
#include "support/RasterReading.h"
#include <QPainter>
#include <QTransform>
#include <gtest/gtest.h>

// A driver that takes dots gets the card as it was drawn, through the print server's own filters.

namespace vantrel::test {

namespace {

const QString Queue = QStringLiteral("Cards");
constexpr int DotsPerInch = 300;
/// Edges of letters may fall on a dot or on its neighbour; a shifted card differs in far more dots.
constexpr double LargestShare = 0.01;
constexpr int LargestDifference = 64;

/// A background without white, which differs everywhere from itself turned around.
QImage Background()
{
    QImage image(306, 486, QImage::Format_RGB32);
    image.fill(QColor(60, 90, 150));
    QPainter painter(&image);
    for (int y = 0; y < image.height(); y += 54)
        painter.fillRect(y / 3, y, 51, 27, QColor(200, 180, 90));
    return image;
}

double ShareThatDiffers(const QImage& one, const QImage& other)
{
    // A page of so many dots and a half has one dot more or less.
    EXPECT_LE(std::abs(one.width() - other.width()), 1);
    EXPECT_LE(std::abs(one.height() - other.height()), 1);
    const int width = std::min(one.width(), other.width());
    const int height = std::min(one.height(), other.height());
    int differing = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > LargestDifference)
                ++differing;
        }
    }
    return static_cast<double>(differing) / (width * height);
}

class DotsOfCard : public ::testing::Test
{
protected:
    DotsOfCard()
    {
        const QString path = m_folder.filePath(QStringLiteral("background.png"));
        EXPECT_TRUE(Background().save(path));
        m_background = LoadPicture(path);
    }

    void Draw(Printer& printer, int orientation) const
    {
        printer.SetOrientation(orientation);
        printer.PaintPicture(m_background, 0, 0, printer.Width(), printer.Height());
        printer.SetFontName(QStringLiteral("Liberation Sans"));
        printer.SetFontSize(14);
        printer.SetForeColor(ColorBlack);
        for (const double part : {0.1, 0.4, 0.8}) {
            printer.SetCurrentX(static_cast<float>(printer.Width() * part / 2));
            printer.SetCurrentY(static_cast<float>(printer.Height() * part));
            printer.Print(QStringLiteral("Anna Berg 4711"));
        }
        printer.EndDoc();
    }
    QImage DotsOfQueue(int orientation)
    {
        CupsPrinter printer(Queue);
        Draw(printer, orientation);
        const auto jobs = Cups.WaitForJobs(++m_cards);
        return jobs.size() < m_cards ? QImage() : ImageOfRaster(jobs.last().PdfPath);
    }
    QImage DotsOfBuiltIn(int orientation) const
    {
        PdfPrinter printer(m_folder.filePath(QStringLiteral("cards")));
        Draw(printer, orientation);
        const QString card = QStringLiteral("cards/card-%1.pdf").arg(m_cards, 6, 10, QChar(u'0'));
        return DotsOfPdf(m_folder.filePath(card), DotsPerInch);
    }
    void ExpectTheBuiltInCard(int orientation)
    {
        const QImage dots = DotsOfQueue(orientation);
        ASSERT_FALSE(dots.isNull());
        // The sides of 153 x 243 points are so many dots and a half, in either order.
        EXPECT_NEAR(std::min(dots.width(), dots.height()), 637, 1);
        EXPECT_NEAR(std::max(dots.width(), dots.height()), 1012, 1);
        QImage card = DotsOfBuiltIn(orientation);
        if ((card.width() > card.height()) != (dots.width() > dots.height()))
            card = card.transformed(QTransform().rotate(90));
        EXPECT_LT(ShareThatDiffers(dots, card), LargestShare);
        const int right = dots.width() - 1;
        const int bottom = dots.height() - 1;
        for (const QPoint corner :
             {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)})
            EXPECT_LT(qGray(dots.pixel(corner)), 200) << corner.x() << ", " << corner.y();
    }

    PrivateCups Cups;

private:
    QTemporaryDir m_folder;
    Picture m_background;
    int m_cards = 0;
};

CardDriver DriverOfDots()
{
    CardDriver driver{{{"CR79", 147, 238}, {"CR80", 153, 243}}, "CR80"};
    driver.TakesDots = true;
    return driver;
}

} // namespace

TEST_F(DotsOfCard, MatchTheBuiltInPrinterInPortrait)
{
    Cups.AddQueue(Queue, DriverOfDots());
    ExpectTheBuiltInCard(OrientationPortrait);
}

TEST_F(DotsOfCard, MatchTheBuiltInPrinterInLandscape)
{
    Cups.AddQueue(Queue, DriverOfDots());
    ExpectTheBuiltInCard(OrientationLandscape);
}

TEST_F(DotsOfCard, MatchTheBuiltInPrinterOnMediaThatAUserHasSet)
{
    CardDriver driver = DriverOfDots();
    driver.Default = "CR79";
    Cups.AddQueue(Queue, driver);
    Cups.SetUserOptions(Queue, {QStringLiteral("media=CR80")});
    ExpectTheBuiltInCard(OrientationPortrait);
    Cups.SetUserOptions(Queue, {QStringLiteral("PageSize=CR80")});
    ExpectTheBuiltInCard(OrientationLandscape);
}

} // namespace vantrel::test
