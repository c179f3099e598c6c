#include "base/Profile.h"
#include "drawing/CodeLayout.h"
#include "drawing/CodePattern.h"
#include "printers/CupsPrinter.h"
#include "printers/PdfPrinter.h"
#include "support/CodeReading.h"
#include "support/CodeSamples.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include "support/PrivateCups.h"
#include "support/RasterReading.h"
#include <gtest/gtest.h>

// Bar codes in the dots of a printer that tells them, through the print server's own filters.

namespace vantrel::test {

namespace {

const QString Queue = QStringLiteral("Cards");
constexpr double CardWidth = 3060;

CardDriver DriverOf(int dotsPerInch)
{
    CardDriver driver{{{"CR80", 153, 243}}, "CR80"};
    driver.TakesDots = true;
    driver.DotsPerInch = dotsPerInch;
    return driver;
}

class CodeDots : public ::testing::Test
{
protected:
    /// Prints the smallest code of this kind in the middle of the upper part of a card. @return the
    /// dots that the driver gets
    QImage Printed(CodeKind kind, int dotsPerInch)
    {
        CupsPrinter printer(Queue);
        EXPECT_EQ(printer.DotsPerInch(), dotsPerInch);
        const auto pattern = CodePatternOf(kind, SampleTextOf(kind), 1);
        const FilledBox place{
            .X = 101,
            .Y = 203,
            .Width = 2 * 4.8 * (pattern->Width + 22) + 4.8,
            .Height = RowOf(kind).IsLinear ? 500 : SmallestModule * (pattern->Height + 8) + 4.8};
        EXPECT_LT(place.Width, CardWidth - place.X);
        const CodeLayout layout = LayOutCode(*pattern, place, printer.DotsPerInch());
        EXPECT_NEAR(layout.Module, SmallestModule, 1e-6);
        printer.SetOrientation(OrientationPortrait);
        printer.SetForeColor(ColorBlack);
        printer.FillBoxes(layout.Boxes);
        printer.EndDoc();
        const auto jobs = Cups.WaitForJobs(++m_cards);
        return jobs.size() < m_cards ? QImage() : ImageOfRaster(jobs.last().PdfPath);
    }

    PrivateCups Cups;

private:
    int m_cards = 0;
};

bool IsDark(const QImage& image, int x, int y)
{
    return qGray(image.pixel(x, y)) < 128;
}

/// The rectangle around all dark dots.
QRect InkOf(const QImage& image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (IsDark(image, x, y))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// Expects that dark and light runs of dots along a line are whole modules.
void ExpectWholeModules(const QImage& code, int module, bool across)
{
    const int length = across ? code.width() : code.height();
    const int lines = across ? code.height() : code.width();
    ASSERT_EQ(length % module, 0) << across;
    for (int line = 0; line < lines; ++line) {
        int begin = 0;
        const auto dark = [&](int at) {
            return across ? IsDark(code, at, line) : IsDark(code, line, at);
        };
        for (int at = 1; at < length; ++at) {
            if (dark(at) == dark(at - 1))
                continue;
            ASSERT_EQ((at - begin) % module, 0) << (across ? "row " : "column ") << line;
            begin = at;
        }
    }
}

} // namespace

TEST_F(CodeDots, ModulesAreWholeDotsAtTheResolutionThatTheDriverTells)
{
    for (const int dotsPerInch : {300, 600}) {
        SCOPED_TRACE(dotsPerInch);
        Cups.AddQueue(Queue, DriverOf(dotsPerInch));
        const int module = 2 * dotsPerInch / 300;
        for (const CodeKind kind : {CodeKind::QrCode, CodeKind::Ean13}) {
            const QImage card = Printed(kind, dotsPerInch);
            ASSERT_FALSE(card.isNull());
            const QRect ink = InkOf(card);
            const QImage code = card.copy(ink);
            ExpectWholeModules(code, module, true);
            if (!RowOf(kind).IsLinear)
                ExpectWholeModules(code, module, false);
            QImage around(ink.width() + 24 * module, ink.height() + 24 * module,
                          QImage::Format_RGB32);
            around.fill(Qt::white);
            for (int y = 0; y < ink.height(); ++y) {
                for (int x = 0; x < ink.width(); ++x)
                    around.setPixel(x + 12 * module, y + 12 * module, code.pixel(x, y));
            }
            EXPECT_EQ(CodesByZxing(around), QStringList(SampleTextOf(kind)));
            EXPECT_EQ(CodesByZbar(around), QStringList(SampleTextOf(kind)));
        }
    }
}

TEST_F(CodeDots, AUsersOptionDoesNotCountSinceNoJobCarriesIt)
{
    Cups.AddQueue(Queue, DriverOf(300));
    Cups.SetUserOptions(Queue, {QStringLiteral("Resolution=1200dpi")});
    EXPECT_EQ(CupsPrinter(Queue).DotsPerInch(), 300);
}

TEST_F(CodeDots, AQueueThatIsMissingTellsNone)
{
    EXPECT_EQ(CupsPrinter(QStringLiteral("Missing")).DotsPerInch(), 0);
}

TEST_F(CodeDots, TheSetupOfAPrinterGoesBeforeWhatTheDriverTells)
{
    Cups.AddQueue(Queue, DriverOf(300));
    const QTemporaryDir folder;
    const QString settings = folder.filePath(SettingsFileName);
    ASSERT_TRUE(WriteProfileValue(settings, QStringLiteral("Printer Cards"),
                                  QStringLiteral("DotsPerInch"), QStringLiteral("600")));
    CupsPrinter printer(Queue);
    printer.FollowSetup(settings);
    EXPECT_EQ(printer.DotsPerInch(), 600);
}

TEST(CodesMoved, AnOffsetMovesThemByWholeDots)
{
    const QTemporaryDir folder;
    const QString settings = folder.filePath(SettingsFileName);
    for (const auto& [key, value] : {std::pair("OffsetX", "31"), std::pair("OffsetY", "-50")})
        ASSERT_TRUE(WriteProfileValue(settings, QStringLiteral("Printer Vantrel PDF"),
                                      QLatin1StringView(key), QLatin1StringView(value)));
    PdfPrinter printer(folder.path());
    printer.FollowSetup(settings);
    EXPECT_EQ(printer.DotsPerInch(), 0);
    printer.FillBoxes({{.X = 480, .Y = 960, .Width = 960, .Height = 480}});
    printer.EndDoc();
    const QString card = folder.filePath(QStringLiteral("card-000001.pdf"));
    // 31 and -50 twips are 6.5 and -10.4 dots.
    const QRect moved = InkOf(DotsOfPdf(card, 300));
    EXPECT_EQ(moved.y(), 200 - 10);
    EXPECT_TRUE(moved.x() == 100 + 6 || moved.x() == 100 + 7) << moved.x();
    EXPECT_EQ(moved.size(), QSize(200, 100));
}

} // namespace vantrel::test
