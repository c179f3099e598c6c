#include "printers/PagePrinter.h"
#include "base/Failure.h"
#include "support/FailureOf.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

/// Keeps what was delivered, or refuses it.
class KeepingPrinter : public PagePrinter
{
public:
    QString DeviceName() const override { return QStringLiteral("Keeping"); }

    std::vector<QByteArray> Delivered;
    bool Refuses = false;

    /// The last delivered job as a file.
    QString File() const
    {
        QFile file(m_folder.filePath(QStringLiteral("job.pdf")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(Delivered.back());
        return file.fileName();
    }

protected:
    JobOutcome Deliver(const QByteArray& pdf) override
    {
        if (Refuses)
            throw Failure(FailureNumber::PrinterError, QStringLiteral("refused"));
        Delivered.push_back(pdf);
        return {};
    }

private:
    QTemporaryDir m_folder;
};

class PagePrinterTest : public ::testing::Test
{
protected:
    PagePrinterTest()
    {
        Printer.SetFontName(QStringLiteral("Liberation Sans"));
        Printer.SetFontSize(10);
    }

    double LineInPoints() const
    {
        return PageCanvas::TextHeight(QString(), Font{QStringLiteral("Liberation Sans"), 10}) / 20;
    }

    KeepingPrinter Printer;
};

} // namespace

TEST_F(PagePrinterTest, WithoutAnOpenPageNothingIsReleased)
{
    Printer.SetCurrentX(100);
    Printer.SetForeColor(1);
    Printer.EndDoc();
    EXPECT_TRUE(Printer.Delivered.empty());
}

TEST_F(PagePrinterTest, TheFirstPrintOpensThePage)
{
    Printer.Print(QStringLiteral(" "));
    Printer.EndDoc();
    ASSERT_EQ(Printer.Delivered.size(), 1U);
    EXPECT_EQ(PageSizeOfPdf(Printer.File()), QStringLiteral("153 x 243"));
}

TEST_F(PagePrinterTest, APictureOpensThePageToo)
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    Printer.PaintPicture(Picture::FromImage(image), 0, 0, Printer.Width(), Printer.Height());
    Printer.EndDoc();
    ASSERT_EQ(Printer.Delivered.size(), 1U);
    EXPECT_EQ(ImageOfPdf(Printer.File()).pixel(300, 500), 0xFFFF0000U);
}

TEST_F(PagePrinterTest, EachJobIsAPageOfItsOwn)
{
    for (const char* text : {"first", "second"}) {
        Printer.Print(QLatin1StringView(text));
        Printer.EndDoc();
        EXPECT_EQ(WordsOfPdf(Printer.File()).size(), 1U);
        EXPECT_EQ(WordOfPdf(Printer.File(), QLatin1StringView(text)).XMin, 0);
    }
    EXPECT_EQ(Printer.Delivered.size(), 2U);
}

TEST_F(PagePrinterTest, PrintGoesToTheStartOfTheNextLine)
{
    Printer.SetCurrentX(400);
    Printer.SetCurrentY(600);
    Printer.Print(QStringLiteral("placed"));
    Printer.Print(QStringLiteral("next"));
    Printer.EndDoc();
    const PdfWord placed = WordOfPdf(Printer.File(), QStringLiteral("placed"));
    const PdfWord next = WordOfPdf(Printer.File(), QStringLiteral("next"));
    EXPECT_NEAR(placed.XMin, 20, 0.01);
    EXPECT_NEAR(placed.YMin, 30, 0.1);
    EXPECT_NEAR(next.XMin, 0, 0.01);
    EXPECT_NEAR(next.YMin, 30 + LineInPoints(), 0.1);
}

TEST_F(PagePrinterTest, AnEmptyTextMovesOneLine)
{
    Printer.Print(QString());
    Printer.Print(QStringLiteral("below"));
    Printer.EndDoc();
    EXPECT_NEAR(WordOfPdf(Printer.File(), QStringLiteral("below")).YMin, LineInPoints(), 0.1);
}

TEST_F(PagePrinterTest, ATextOfTwoLinesMovesTwo)
{
    Printer.Print(QStringLiteral("a\r\nb"));
    Printer.Print(QStringLiteral("below"));
    Printer.EndDoc();
    EXPECT_NEAR(WordOfPdf(Printer.File(), QStringLiteral("below")).YMin, 2 * LineInPoints(), 0.1);
}

TEST_F(PagePrinterTest, TheLineMovedIsThatOfThePresentFont)
{
    Printer.SetFontSize(30);
    Printer.Print(QStringLiteral("large"));
    Printer.SetFontSize(10);
    Printer.Print(QStringLiteral("small"));
    Printer.EndDoc();
    EXPECT_NEAR(WordOfPdf(Printer.File(), QStringLiteral("small")).YMin, 3 * LineInPoints(), 0.1);
}

TEST_F(PagePrinterTest, ANewPageBeginsAtTheTopLeft)
{
    Printer.SetCurrentX(700);
    Printer.SetCurrentY(900);
    Printer.Print(QStringLiteral("one"));
    Printer.SetCurrentX(700);
    Printer.EndDoc();
    Printer.Print(QStringLiteral("two"));
    Printer.EndDoc();
    const PdfWord two = WordOfPdf(Printer.File(), QStringLiteral("two"));
    EXPECT_NEAR(two.XMin, 0, 0.01);
    EXPECT_NEAR(two.YMin, 0, 0.1);
}

TEST_F(PagePrinterTest, ATextAlignedByItsWidthEndsAtItsObjectsEdge)
{
    const QString text = QStringLiteral("right");
    Printer.SetCurrentX(200 + (2000 - Printer.TextWidth(text)));
    Printer.SetCurrentY(100);
    Printer.Print(text);
    Printer.SetCurrentX(200 + (2000 - Printer.TextWidth(text)) / 2);
    Printer.SetCurrentY(1000);
    Printer.Print(QStringLiteral("right"));
    Printer.EndDoc();
    const std::vector<PdfWord> words = WordsOfPdf(Printer.File());
    ASSERT_EQ(words.size(), 2U);
    EXPECT_NEAR(words[0].XMax, 110, 0.1);
    EXPECT_NEAR((words[1].XMin + words[1].XMax) / 2, 60, 0.1);
}

TEST_F(PagePrinterTest, FontAndColourStayFromJobToJob)
{
    Printer.SetForeColor(0x0000FF);
    Printer.SetFontBold(true);
    Printer.Print(QStringLiteral("one"));
    Printer.EndDoc();
    Printer.Print(QString(3, QChar(0x2588)));
    Printer.EndDoc();
    EXPECT_EQ(ImageOfPdf(Printer.File()).pixel(20, 24), 0xFFFF0000U);
}

TEST_F(PagePrinterTest, OrientationTurnsThePage)
{
    EXPECT_EQ(Printer.Width(), 3060);
    EXPECT_EQ(Printer.Height(), 4860);
    Printer.SetOrientation(OrientationLandscape);
    EXPECT_EQ(Printer.Width(), 4860);
    EXPECT_EQ(Printer.Height(), 3060);
    Printer.Print(QStringLiteral("wide"));
    Printer.EndDoc();
    EXPECT_EQ(PageSizeOfPdf(Printer.File()), QStringLiteral("243 x 153"));
}

TEST_F(PagePrinterTest, AnOpenPageKeepsItsOrientation)
{
    Printer.Print(QStringLiteral("tall"));
    Printer.SetOrientation(OrientationLandscape);
    Printer.EndDoc();
    EXPECT_EQ(PageSizeOfPdf(Printer.File()), QStringLiteral("153 x 243"));
    Printer.Print(QStringLiteral("wide"));
    Printer.EndDoc();
    EXPECT_EQ(PageSizeOfPdf(Printer.File()), QStringLiteral("243 x 153"));
}

TEST_F(PagePrinterTest, AnUnknownOrientationFailsAndChangesNothing)
{
    for (const int orientation : {0, 3, -1}) {
        EXPECT_EQ(FailureOf([&] { Printer.SetOrientation(orientation); }),
                  FailureNumber::PrinterError);
    }
    EXPECT_EQ(Printer.Width(), 3060);
}

TEST_F(PagePrinterTest, AnInvalidFontSizeFailsAndChangesNothing)
{
    const double before = Printer.TextWidth(QStringLiteral("text"));
    for (const double size : {0.0, -1.0, 1e9, std::nan("")})
        EXPECT_EQ(FailureOf([&] { Printer.SetFontSize(size); }), FailureNumber::PrinterError);
    EXPECT_EQ(Printer.TextWidth(QStringLiteral("text")), before);
}

TEST_F(PagePrinterTest, ARefusedJobIsGoneAndTheNextOneIsWhole)
{
    Printer.Refuses = true;
    Printer.Print(QStringLiteral("lost"));
    EXPECT_EQ(FailureOf([&] { Printer.EndDoc(); }), FailureNumber::PrinterError);
    Printer.Refuses = false;
    Printer.EndDoc();
    EXPECT_TRUE(Printer.Delivered.empty());
    Printer.Print(QStringLiteral("whole"));
    Printer.EndDoc();
    EXPECT_EQ(WordsOfPdf(Printer.File()).size(), 1U);
    EXPECT_NEAR(WordOfPdf(Printer.File(), QStringLiteral("whole")).YMin, 0, 0.1);
}

TEST_F(PagePrinterTest, WhatBecameOfAJobIsToldOnceAndAFailureIsNotThrown)
{
    QList<JobOutcome> told;
    const auto tell = [&](const JobOutcome& outcome) { told.append(outcome); };
    Printer.EndDocAndTell(tell);
    Printer.Print(QStringLiteral("taken"));
    Printer.EndDocAndTell(tell);
    Printer.Refuses = true;
    Printer.Print(QStringLiteral("refused"));
    Printer.EndDocAndTell(tell);
    ASSERT_EQ(told.size(), 3);
    EXPECT_FALSE(told[0].HandedOver);
    EXPECT_EQ(told[0].Reason, QStringLiteral("Nothing was drawn"));
    EXPECT_TRUE(told[1].HandedOver);
    EXPECT_EQ(told[1].Reason, QString());
    EXPECT_FALSE(told[2].HandedOver);
    EXPECT_EQ(told[2].Reason, QStringLiteral("refused"));
    EXPECT_EQ(Printer.Delivered.size(), 1);
}

TEST_F(PagePrinterTest, APageDrawnByTheOneWhoIsToldIsAJobOfItsOwn)
{
    bool told = false;
    Printer.Print(QStringLiteral("first"));
    Printer.EndDocAndTell([&](const JobOutcome&) {
        Printer.Print(QStringLiteral("second"));
        Printer.EndDocAndTell([&](const JobOutcome&) { told = true; });
    });
    EXPECT_TRUE(told);
    ASSERT_EQ(Printer.Delivered.size(), 2);
    EXPECT_EQ(WordsOfPdf(Printer.File()).size(), 1);
    EXPECT_EQ(WordsOfPdf(Printer.File()).at(0).Text, QStringLiteral("second"));
}

TEST_F(PagePrinterTest, AnEmptyPictureLeavesTheCardWithoutIt)
{
    Printer.Print(QStringLiteral("before"));
    EXPECT_EQ(FailureOf([&] { Printer.PaintPicture(Picture(), 0, 0, 10, 10); }),
              FailureNumber::InvalidPicture);
    Printer.Print(QStringLiteral("after"));
    Printer.EndDoc();
    EXPECT_EQ(WordsOfPdf(Printer.File()).size(), 2U);
}

TEST_F(PagePrinterTest, FontsAreCountedFromOne)
{
    EXPECT_EQ(Printer.Fonts(1), PageCanvas::FontFamily(1));
    EXPECT_EQ(FailureOf([&] { Printer.Fonts(0); }), FailureNumber::SubscriptOutOfRange);
}

} // namespace vantrel::test
