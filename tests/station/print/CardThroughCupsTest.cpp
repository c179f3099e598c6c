#include "station/print/PrintCard.h"
#include "station/print/RealStation.h"
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

/// A station with one automatic number on its card, for one queue.
class QueueFault : public ::testing::Test
{
protected:
    QueueFault()
    {
        m_cups.AddQueue(QStringLiteral("Another"));
        m_cups.AddQueue(Queue);
        m_station.emplace(Queue);
        AddNumber(m_station->Session, 1);
        SavePage(m_station->Session);
    }

    /// Prints the card. @return the number that the store holds after it
    QString NumberAfterPrinting()
    {
        PrintCard(m_station->Session);
        return StoredNumbers(m_station->Session, QStringLiteral("Card")).join(QLatin1Char(' '));
    }
    void ExpectCards(const QStringList& numbers) const
    {
        const auto jobs = m_cups.WaitForJobs(static_cast<int>(numbers.size()));
        ASSERT_EQ(jobs.size(), numbers.size());
        for (qsizetype i = 0; i < numbers.size(); ++i)
            EXPECT_EQ(WordsOfPdf(jobs[i].PdfPath).back().Text, numbers[i]);
    }
    SpoolState Spool() { return m_station->Printers.SpoolStateOf(Queue); }

    PrivateCups m_cups;
    std::optional<RealStation> m_station;
};

TEST_F(QueueFault, ACardForAPausedQueueWaitsAndPrintsWhenItRuns)
{
    m_cups.Pause(Queue);
    EXPECT_EQ(NumberAfterPrinting(), QStringLiteral("2"));
    EXPECT_EQ(NumberAfterPrinting(), QStringLiteral("3"));
    EXPECT_TRUE(Spool().Paused);
    EXPECT_TRUE(Spool().Accepting);
    EXPECT_EQ(Spool().Jobs, 2);
    m_cups.Resume(Queue);
    ExpectCards({QStringLiteral("2"), QStringLiteral("3")});
    EXPECT_FALSE(Spool().Paused);
}

TEST_F(QueueFault, ACardForARejectingQueueIsLostAndTheNextOnePrints)
{
    m_cups.Reject(Queue);
    EXPECT_EQ(NumberAfterPrinting(), QStringLiteral("2"));
    EXPECT_FALSE(Spool().Paused);
    EXPECT_FALSE(Spool().Accepting);
    EXPECT_EQ(Spool().Jobs, 0);
    m_cups.Accept(Queue);
    EXPECT_EQ(NumberAfterPrinting(), QStringLiteral("3"));
    ExpectCards({QStringLiteral("3")});
}

TEST_F(QueueFault, ACardForADeletedQueueIsLostAndTheNextOnePrints)
{
    ASSERT_TRUE(m_station->Printers.DeviceNames().contains(Queue));
    m_cups.Delete(Queue);
    EXPECT_EQ(NumberAfterPrinting(), QStringLiteral("2"));
    EXPECT_FALSE(Spool().Paused);
    EXPECT_EQ(Spool().Jobs, 0);
    m_cups.AddQueue(Queue);
    EXPECT_EQ(NumberAfterPrinting(), QStringLiteral("3"));
    ExpectCards({QStringLiteral("3")});
}

TEST_F(QueueFault, ACardWithoutAServerIsLostAndTheNextOnePrintsWhenItIsBack)
{
    m_cups.Kill();
    EXPECT_EQ(NumberAfterPrinting(), QStringLiteral("2"));
    EXPECT_FALSE(Spool().Paused);
    m_cups.Start();
    EXPECT_EQ(NumberAfterPrinting(), QStringLiteral("3"));
    ExpectCards({QStringLiteral("3")});
}

TEST_F(QueueFault, ALostCardDoesNotStopTheOtherCopies)
{
    m_station->Session.CurrentParams.PrinterCopies = 3;
    SavePage(m_station->Session);
    m_cups.Reject(Queue);
    EXPECT_EQ(NumberAfterPrinting(), QStringLiteral("4"));
    m_cups.Accept(Queue);
    EXPECT_EQ(NumberAfterPrinting(), QStringLiteral("7"));
    ExpectCards({QStringLiteral("5"), QStringLiteral("6"), QStringLiteral("7")});
}

} // namespace
} // namespace vantrel::test
