#include "BookTest.h"
#include <limits>

namespace vantrel::test {

namespace {

class FillBoxes : public BookTest
{
protected:
    /// Draws on paper and on screen, at eight pixels to the point.
    template <typename Draw>
    std::pair<QImage, QImage> PaperAndScreen(Draw draw)
    {
        const QString pdf = Pdf(draw);
        ExpectValidPdf(pdf);
        EXPECT_TRUE(PictureObjectsOfPdf(pdf).isEmpty());
        return {ImageOfPdf(pdf, 8), Screen(8.0 / 20, draw)};
    }
};

} // namespace

TEST_F(FillBoxes, FillsTheSameOnPaperAndScreen)
{
    const auto [paper, screen] = PaperAndScreen([](PageCanvas& page) {
        page.FillBoxes({{.X = 200, .Y = 300, .Width = 1000, .Height = 500},
                        {.X = 1500, .Y = 900, .Width = 250, .Height = 1000}},
                       0x0000FF);
    });
    for (const QImage& image : {paper, screen}) {
        EXPECT_EQ(InkOf(image), QRect(QPoint(80, 120), QPoint(699, 759)));
        EXPECT_EQ(image.pixel(81, 121), qRgb(255, 0, 0));
        EXPECT_EQ(image.pixel(600, 362), qRgb(255, 0, 0));
        EXPECT_EQ(image.pixel(500, 200), qRgb(255, 255, 255));
    }
    EXPECT_LT(InkApart(paper, screen), 0.002);
}

TEST_F(FillBoxes, NoSeamShowsBetweenBoxesThatTouch)
{
    const auto [paper, screen] = PaperAndScreen([](PageCanvas& page) {
        std::vector<FilledBox> rows;
        rows.reserve(50);
        for (int row = 0; row < 50; ++row)
            rows.push_back({.X = 203, .Y = 301 + row * 13.7, .Width = 900, .Height = 13.7});
        page.FillBoxes(rows, ColorBlack);
    });
    for (const QImage& image : {paper, screen}) {
        const int x = image.width() / 5;
        for (int y = 122; y < 390; ++y)
            ASSERT_EQ(qGray(image.pixel(x, y)), 0) << y;
    }
}

TEST_F(FillBoxes, RoundedCornersAreTheSameOnPaperAndScreen)
{
    const FilledBox ellipse{
        .X = 400, .Y = 400, .Width = 1600, .Height = 800, .RadiusX = 800, .RadiusY = 400};
    const FilledBox rounded{
        .X = 400, .Y = 2000, .Width = 1600, .Height = 800, .RadiusX = 200, .RadiusY = 200};
    const auto [paper, screen] = PaperAndScreen([&](PageCanvas& page) {
        page.FillBoxes({ellipse, rounded}, ColorBlack);
    });
    EXPECT_LT(InkApart(paper, screen), 0.002);
    for (const QImage& image : {paper, screen}) {
        EXPECT_EQ(InkOf(image), QRect(QPoint(160, 160), QPoint(799, 1119)));
        int ink = 0;
        for (int y = 0; y < 600; ++y) {
            for (int x = 0; x < image.width(); ++x)
                ink += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
        }
        // An ellipse of 640 by 320 pixels.
        EXPECT_NEAR(ink, 3.14159265 * 320 * 160, 400);
        // The straight corner is cut, the side is not.
        EXPECT_EQ(qGray(image.pixel(162, 802)), 255);
        EXPECT_EQ(qGray(image.pixel(161, 960)), 0);
    }
}

TEST_F(FillBoxes, BoxesWithoutASideOrFarAwayAreLeftOut)
{
    const double endless = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    const QString pdf = Pdf([&](PageCanvas& page) {
        page.FillBoxes({{.X = 0, .Y = 0, .Width = 0, .Height = 100},
                        {.X = 0, .Y = 0, .Width = 100, .Height = -1},
                        {.X = 1e9, .Y = 0, .Width = 100, .Height = 100},
                        {.X = 0, .Y = none, .Width = 100, .Height = 100},
                        {.X = 0, .Y = 0, .Width = endless, .Height = 100}},
                       ColorBlack);
        page.FillBoxes({}, ColorBlack);
    });
    ExpectValidPdf(pdf);
    EXPECT_TRUE(InkOf(ImageOfPdf(pdf)).isEmpty());
}

TEST_F(FillBoxes, BoxesStandInABookAndOnAPageThatCairoWrites)
{
    const FilledBox box{.X = 200, .Y = 300, .Width = 1000, .Height = 500};
    const QString book = BookOf(2, [&](PageCanvas& page, int number) {
        page.FillBoxes({box}, ColorBlack);
        // No plain TrueType font: cairo writes the second page where it stands alone.
        if (number == 1)
            Write(page, QStringLiteral("x"), {QStringLiteral("Nimbus Sans"), 14});
    });
    const QString alone = Pdf([&](PageCanvas& page) {
        page.FillBoxes({box}, ColorBlack);
        Write(page, QStringLiteral("x"), {QStringLiteral("Nimbus Sans"), 14});
    });
    ExpectValidPdf(book);
    const QRect ink(QPoint(40, 60), QPoint(239, 159));
    EXPECT_EQ(InkOf(ImageOfPdf(book, 4, 1)), ink);
    EXPECT_EQ(InkOf(ImageOfPdf(book, 4, 2)), ink);
    EXPECT_EQ(InkOf(ImageOfPdf(alone, 4)), ink);
}

} // namespace vantrel::test
