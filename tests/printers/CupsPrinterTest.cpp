#include "printers/CupsPrinter.h"
#include "base/Failure.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include "support/PrivateCups.h"
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

const QString Queue = QStringLiteral("Cards");

void PrintCard(CupsPrinter& printer, const QString& title, const QString& text)
{
    printer.SetJobTitle(title);
    printer.SetFontName(QStringLiteral("Liberation Sans"));
    printer.SetCurrentX(400);
    printer.SetCurrentY(600);
    printer.Print(text);
    printer.EndDoc();
}

/// @return the failure's text; fails the test where the card is accepted
QString ReasonOfRefusal(CupsPrinter& printer)
{
    try {
        PrintCard(printer, QStringLiteral("Refused"), QStringLiteral("refused"));
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::PrinterError);
        return failure.Text();
    }
    ADD_FAILURE() << "the card was taken";
    return {};
}

} // namespace

TEST(CupsPrinter, ACardArrivesAsPdfUnderItsTitle)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    CupsPrinter printer(Queue);
    EXPECT_EQ(printer.DeviceName(), Queue);
    const QString title = QString::fromUtf8("Ausweis für Jürgen");
    PrintCard(printer, title, QString::fromUtf8("Groß"));
    const auto jobs = cups.WaitForJobs(1);
    ASSERT_EQ(jobs.size(), 1);
    EXPECT_EQ(jobs[0].Title, title);
    EXPECT_EQ(jobs[0].Queue, Queue);
    const PdfWord word = WordOfPdf(jobs[0].PdfPath, QString::fromUtf8("Groß"));
    EXPECT_NEAR(word.XMin, 20, 0.01);
    EXPECT_NEAR(word.YMin, 30, 0.1);
}

TEST(CupsPrinter, ThePageIsThatOfTheQueuesMedia)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    CupsPrinter printer(Queue);
    // CUPS gives media in hundredths of a millimetre; the page is 153 x 243 points all the same.
    EXPECT_EQ(printer.Width(), 3060);
    EXPECT_EQ(printer.Height(), 4860);
    printer.SetOrientation(OrientationLandscape);
    EXPECT_EQ(printer.Width(), 4860);
    EXPECT_EQ(printer.Height(), 3060);
}

TEST(CupsPrinter, ALandscapeCardIsDrawnInLandscape)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    CupsPrinter printer(Queue);
    printer.SetOrientation(OrientationLandscape);
    PrintCard(printer, QStringLiteral("wide"), QStringLiteral("wide"));
    const auto jobs = cups.WaitForJobs(1);
    ASSERT_EQ(jobs.size(), 1);
    EXPECT_EQ(PageSizeOfPdf(jobs[0].PdfPath), QStringLiteral("243 x 153"));
}

TEST(CupsPrinter, JobsKeepTheirOrder)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    CupsPrinter printer(Queue);
    for (int i = 1; i <= 5; ++i)
        PrintCard(printer, QStringLiteral("Card %1").arg(i), QStringLiteral("x"));
    const auto jobs = cups.WaitForJobs(5);
    ASSERT_EQ(jobs.size(), 5);
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(jobs[i - 1].Title, QStringLiteral("Card %1").arg(i));
}

TEST(CupsPrinter, AnyTitleIsTaken)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    CupsPrinter printer(Queue);
    PrintCard(printer, QString(), QStringLiteral("x"));
    PrintCard(printer, QStringLiteral("a\tb\nc"), QStringLiteral("x"));
    PrintCard(printer, QString(300, QChar(0xE9)), QStringLiteral("x"));
    const auto jobs = cups.WaitForJobs(3);
    ASSERT_EQ(jobs.size(), 3);
    EXPECT_EQ(jobs[0].Title, QStringLiteral("Card"));
    EXPECT_EQ(jobs[1].Title, QStringLiteral("a b c"));
    EXPECT_EQ(jobs[2].Title, QString(127, QChar(0xE9)));
}

TEST(CupsPrinter, ARejectingQueueFailsWithTheServersReason)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    CupsPrinter printer(Queue);
    PrintCard(printer, QStringLiteral("first"), QStringLiteral("first"));
    cups.Reject(Queue);
    EXPECT_TRUE(ReasonOfRefusal(printer).contains(QStringLiteral("not accepting jobs")));
    EXPECT_EQ(cups.WaitForJobs(1).size(), 1);
}

TEST(CupsPrinter, AnOutcomeNamesTheJobOrTheServersReason)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    CupsPrinter printer(Queue);
    QList<JobOutcome> told;
    const auto tell = [&](const JobOutcome& outcome) { told.append(outcome); };
    const auto draw = [&] {
        printer.SetFontName(QStringLiteral("Liberation Sans"));
        printer.Print(QStringLiteral("x"));
    };
    printer.EndDocAndTell(tell);
    draw();
    printer.EndDocAndTell(tell);
    draw();
    printer.EndDocAndTell(tell);
    cups.WaitForJobs(2);
    cups.Reject(Queue);
    draw();
    printer.EndDocAndTell(tell);
    ASSERT_EQ(told.size(), 4);
    EXPECT_FALSE(told[0].HandedOver);
    EXPECT_EQ(told[0].Reason, QStringLiteral("Nothing was drawn"));
    EXPECT_TRUE(told[1].HandedOver);
    EXPECT_EQ(told[1].JobId, 1);
    EXPECT_EQ(told[1].Reason, QString());
    EXPECT_EQ(told[2].JobId, 2);
    EXPECT_EQ(told[2].File, QString());
    EXPECT_FALSE(told[3].HandedOver);
    EXPECT_EQ(told[3].JobId, 0);
    EXPECT_EQ(told[3].Reason, QStringLiteral("Destination \"Cards\" is not accepting jobs."));
}

TEST(CupsPrinter, ADeletedQueueFails)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    CupsPrinter printer(Queue);
    PrintCard(printer, QStringLiteral("first"), QStringLiteral("first"));
    cups.WaitForJobs(1);
    cups.Delete(Queue);
    EXPECT_FALSE(ReasonOfRefusal(printer).isEmpty());
    EXPECT_FALSE(ReasonOfRefusal(printer).isEmpty()) << "asked anew";
}

TEST(CupsPrinter, AKilledServerFailsAndThePageKeepsItsSize)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    CupsPrinter printer(Queue);
    PrintCard(printer, QStringLiteral("first"), QStringLiteral("first"));
    cups.WaitForJobs(1);
    const double width = printer.Width();
    cups.Kill();
    EXPECT_FALSE(ReasonOfRefusal(printer).isEmpty());
    EXPECT_FALSE(ReasonOfRefusal(printer).isEmpty()) << "asked anew";
    EXPECT_EQ(printer.Width(), width);
}

TEST(CupsPrinter, AQueueThatNeverWasFailsButHasACardsPage)
{
    const PrivateCups cups;
    CupsPrinter printer(QStringLiteral("Nobody"));
    EXPECT_EQ(printer.Width(), 3060);
    EXPECT_EQ(printer.Height(), 4860);
    EXPECT_TRUE(ReasonOfRefusal(printer).contains(QStringLiteral("Nobody")));
}

} // namespace vantrel::test
