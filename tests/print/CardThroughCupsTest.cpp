#include "print/PrintCard.h"
#include "print/RealStation.h"
#include "support/PdfReading.h"
#include "support/PrivateCups.h"
#include <gtest/gtest.h>

// Whole cards through a real print server. A queue that fails is passed over in silence, and the
// station goes on.

namespace vantrel::test {
namespace {

const QString Queue = QStringLiteral("Cards");

void AddSecondPage(vantrel::Session& session)
{
    BeginPage(session, 2);
    AddText(session, QStringLiteral("back"));
    SavePage(session);
    session.CurrentParams.PageIndex = 1;
}

TEST(CardThroughCups, EachPageIsAJobNamedByLayoutAndPage)
{
    PrivateCups cups;
    cups.AddQueue(QStringLiteral("Another"));
    cups.AddQueue(Queue);
    RealStation station(Queue);
    AddText(station.Session, QStringLiteral("front"));
    SavePage(station.Session);
    AddSecondPage(station.Session);
    PrintCard(station.Session);
    const auto jobs = cups.WaitForJobs(2);
    ASSERT_EQ(jobs.size(), 2);
    EXPECT_EQ(jobs[0].Title, QStringLiteral("Card - Page 1"));
    EXPECT_EQ(jobs[1].Title, QStringLiteral("Card - Page 2"));
    EXPECT_EQ(jobs[0].Queue, Queue);
    EXPECT_EQ(WordOfPdf(jobs[0].PdfPath, QStringLiteral("front")).Text, QStringLiteral("front"));
    EXPECT_EQ(WordOfPdf(jobs[1].PdfPath, QStringLiteral("back")).Text, QStringLiteral("back"));
}

TEST(CardThroughCups, ARejectingQueueLosesTheCardAndTheNumberRises)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    RealStation station(Queue);
    AddNumber(station.Session, 1);
    SavePage(station.Session);
    cups.Reject(Queue);
    PrintCard(station.Session);
    EXPECT_EQ(StoredNumbers(station.Session, QStringLiteral("Card")),
              QStringList({QStringLiteral("2")}));
    EXPECT_TRUE(cups.WaitForJobs(0).isEmpty());
}

TEST(CardThroughCups, WithTheServerGoneTheStationRunsOnAndItsOwnPrinterPrints)
{
    PrivateCups cups;
    cups.AddQueue(Queue);
    RealStation station(Queue);
    AddNumber(station.Session, 1);
    SavePage(station.Session);
    cups.Kill();
    PrintCard(station.Session);
    EXPECT_EQ(StoredNumbers(station.Session, QStringLiteral("Card")),
              QStringList({QStringLiteral("2")}));
    station.Session.CurrentParams.PrinterDevice = QStringLiteral("Vantrel PDF");
    SavePage(station.Session);
    PrintCard(station.Session);
    EXPECT_EQ(WordOfPdf(station.CardPath(1), QStringLiteral("3")).Text, QStringLiteral("3"));
}

} // namespace
} // namespace vantrel::test
