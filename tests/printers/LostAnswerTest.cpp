#include "printers/CupsPrinter.h"
#include "support/PrivateCups.h"
#include "support/SlowLine.h"
#include <cups/cups.h>
#include <gtest/gtest.h>
#include <string>

// The connection to the print server breaks in the middle of a card's job.

namespace vantrel::test {
namespace {

const QString Queue = QStringLiteral("Cards");

/// What only the request for a new job holds, and what only a document does.
const QByteArray NewJob = "job-name";
const QByteArray Document = "%PDF";

class LostAnswer : public ::testing::Test
{
protected:
    LostAnswer()
    {
        Cups.AddQueue(Queue);
        cupsSetServer(("127.0.0.1:" + std::to_string(Line.Port())).c_str());
    }

    JobOutcome Print(const QString& title)
    {
        JobOutcome told;
        m_printer.SetJobTitle(title);
        m_printer.Print(QStringLiteral("x"));
        m_printer.EndDocAndTell([&](const JobOutcome& outcome) { told = outcome; });
        return told;
    }
    void ExpectLost(const JobOutcome& outcome) const
    {
        EXPECT_TRUE(Line.HasBroken());
        EXPECT_FALSE(outcome.HandedOver);
        EXPECT_FALSE(outcome.Reason.isEmpty());
        EXPECT_FALSE(outcome.Reason.contains(QStringLiteral("successful")))
            << outcome.Reason.toStdString();
    }

    PrivateCups Cups;
    SlowLine Line{Cups.SocketPath()};

private:
    CupsPrinter m_printer{Queue};
};

TEST_F(LostAnswer, ToADocumentIsAFailure)
{
    Line.BreakAt(Document, SlowLine::Loses::Answer);
    ExpectLost(Print(QStringLiteral("first")));
    EXPECT_TRUE(Print(QStringLiteral("second")).HandedOver);
}

TEST_F(LostAnswer, OfADocumentThatIsLostItselfIsAFailureAndNothingPrints)
{
    Line.BreakAt(Document, SlowLine::Loses::Word);
    ExpectLost(Print(QStringLiteral("first")));
    EXPECT_TRUE(Print(QStringLiteral("second")).HandedOver);
    const auto jobs = Cups.WaitForJobs(1);
    ASSERT_EQ(jobs.size(), 1);
    EXPECT_EQ(jobs[0].Title, QStringLiteral("second"));
}

TEST_F(LostAnswer, ToANewJobIsAFailureAndCostsNoOtherCard)
{
    Cups.Pause(Queue);
    EXPECT_TRUE(Print(QStringLiteral("first")).HandedOver);
    Line.BreakAt(NewJob, SlowLine::Loses::Answer);
    ExpectLost(Print(QStringLiteral("second")));
    EXPECT_TRUE(Print(QStringLiteral("third")).HandedOver);
    Cups.Resume(Queue);
    const auto jobs = Cups.WaitForJobs(2);
    ASSERT_EQ(jobs.size(), 2);
    EXPECT_EQ(jobs[0].Title, QStringLiteral("first"));
    EXPECT_EQ(jobs[1].Title, QStringLiteral("third"));
}

} // namespace
} // namespace vantrel::test
