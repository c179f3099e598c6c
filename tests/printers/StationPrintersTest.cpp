#include "printers/StationPrinters.h"
#include "base/Failure.h"
#include "support/Print.h"
#include "support/PrivateCups.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

const QString Pdf = QStringLiteral("Vantrel PDF");

class StationPrintersTest : public ::testing::Test
{
protected:
    QString CardPath(int number) const
    {
        return m_program.filePath(QStringLiteral("Printed/Session 2/card-00000%1.pdf").arg(number));
    }

    QTemporaryDir m_program;
};

} // namespace

TEST_F(StationPrintersTest, WithoutAServerThereIsTheBuiltInPrinter)
{
    PrivateCups cups;
    cups.Kill();
    StationPrinters printers(m_program.path(), 2);
    EXPECT_EQ(printers.DeviceNames(), QStringList{Pdf});
    EXPECT_EQ(printers.Current().DeviceName(), Pdf);
    printers.Current().Print(QStringLiteral("A"));
    printers.Current().EndDoc();
    EXPECT_TRUE(QFile::exists(CardPath(1)));
}

TEST_F(StationPrintersTest, DurableFilesAreToldWhenTheJobsAreFinished)
{
    PrivateCups cups;
    cups.Kill();
    StationPrinters printers(m_program.path(), 2);
    printers.SetDurableFiles(true);
    QList<JobOutcome> told;
    printers.Current().Print(QStringLiteral("A"));
    printers.Current().EndDocAndTell([&](const JobOutcome& outcome) { told.append(outcome); });
    EXPECT_TRUE(told.isEmpty());
    printers.FinishJobs();
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].HandedOver);
    EXPECT_EQ(told[0].File, QStringLiteral("card-000001.pdf"));
    EXPECT_TRUE(QFile::exists(CardPath(1)));
}

TEST_F(StationPrintersTest, QueuesComeInTheirOrderAndTheBuiltInPrinterLast)
{
    PrivateCups cups;
    cups.AddQueue(QStringLiteral("Beta"));
    cups.AddQueue(QStringLiteral("alpha"));
    cups.AddQueue(QStringLiteral("Gamma"));
    StationPrinters printers(m_program.path(), 2);
    EXPECT_EQ(printers.DeviceNames(), (QStringList{QStringLiteral("alpha"), QStringLiteral("Beta"),
                                                   QStringLiteral("Gamma"), Pdf}));
}

TEST_F(StationPrintersTest, WithoutADefaultQueueTheBuiltInPrinterIsCurrent)
{
    PrivateCups cups;
    cups.AddQueue(QStringLiteral("Cards"));
    StationPrinters printers(m_program.path(), 2);
    EXPECT_EQ(printers.Current().DeviceName(), Pdf);
}

TEST_F(StationPrintersTest, TheDefaultQueueIsCurrent)
{
    PrivateCups cups;
    cups.AddQueue(QStringLiteral("Cards"));
    cups.AddQueue(QStringLiteral("Badges"));
    cups.MakeDefault(QStringLiteral("Cards"));
    StationPrinters printers(m_program.path(), 2);
    EXPECT_EQ(printers.Current().DeviceName(), QStringLiteral("Cards"));
}

TEST_F(StationPrintersTest, JobsGoToThePrinterMadeCurrent)
{
    PrivateCups cups;
    cups.AddQueue(QStringLiteral("Badges"));
    cups.AddQueue(QStringLiteral("Cards"));
    StationPrinters printers(m_program.path(), 2);
    for (const auto& name : {QStringLiteral("Cards"), Pdf, QStringLiteral("Badges")}) {
        printers.MakeCurrent(name);
        printers.Current().Print(name);
        printers.Current().EndDoc();
    }
    const auto jobs = cups.WaitForJobs(2);
    ASSERT_EQ(jobs.size(), 2);
    EXPECT_EQ(jobs[0].Queue, QStringLiteral("Cards"));
    EXPECT_EQ(jobs[1].Queue, QStringLiteral("Badges"));
    EXPECT_TRUE(QFile::exists(CardPath(1)));
    EXPECT_FALSE(QFile::exists(CardPath(2)));
}

TEST_F(StationPrintersTest, AnUnknownNameFailsAndTheCurrentPrinterStays)
{
    PrivateCups cups;
    cups.AddQueue(QStringLiteral("Cards"));
    StationPrinters printers(m_program.path(), 2);
    printers.MakeCurrent(QStringLiteral("Cards"));
    for (const auto& name : {QStringLiteral("cards"), QStringLiteral("Cards "), QString()}) {
        try {
            printers.MakeCurrent(name);
            ADD_FAILURE() << name.toStdString();
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::PrinterError);
        }
    }
    EXPECT_EQ(printers.Current().DeviceName(), QStringLiteral("Cards"));
}

TEST_F(StationPrintersTest, APrinterKeepsItsFontWhileAnotherIsCurrent)
{
    PrivateCups cups;
    cups.AddQueue(QStringLiteral("Cards"));
    StationPrinters printers(m_program.path(), 2);
    printers.MakeCurrent(Pdf);
    printers.Current().SetFontSize(40);
    const double width = printers.Current().TextWidth(QStringLiteral("text"));
    printers.MakeCurrent(QStringLiteral("Cards"));
    EXPECT_NE(printers.Current().TextWidth(QStringLiteral("text")), width);
    printers.MakeCurrent(Pdf);
    EXPECT_EQ(printers.Current().TextWidth(QStringLiteral("text")), width);
}

TEST_F(StationPrintersTest, TheSpoolShowsPausedRejectingAndWaitingJobs)
{
    PrivateCups cups;
    const QString queue = QStringLiteral("Cards");
    cups.AddQueue(queue);
    StationPrinters printers(m_program.path(), 2);
    EXPECT_FALSE(printers.SpoolStateOf(queue).Paused);
    EXPECT_TRUE(printers.SpoolStateOf(queue).Accepting);
    EXPECT_EQ(printers.SpoolStateOf(queue).Jobs, 0);
    cups.Pause(queue);
    printers.MakeCurrent(queue);
    for (int i = 0; i < 2; ++i) {
        printers.Current().Print(QStringLiteral("waits"));
        printers.Current().EndDoc();
    }
    cups.Reject(queue);
    EXPECT_TRUE(printers.SpoolStateOf(queue).Paused);
    EXPECT_FALSE(printers.SpoolStateOf(queue).Accepting);
    EXPECT_EQ(printers.SpoolStateOf(queue).Jobs, 2);
}

TEST_F(StationPrintersTest, APrinterWithoutAQueueIsRunningAndEmpty)
{
    PrivateCups cups;
    StationPrinters printers(m_program.path(), 2);
    for (const auto& name : {Pdf, QStringLiteral("Nobody")}) {
        EXPECT_FALSE(printers.SpoolStateOf(name).Paused);
        EXPECT_TRUE(printers.SpoolStateOf(name).Accepting);
        EXPECT_EQ(printers.SpoolStateOf(name).Jobs, 0);
    }
}

} // namespace vantrel::test
