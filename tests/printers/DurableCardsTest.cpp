#include "DurableCards.h"
#include "DiskCalls.h"
#include "support/Events.h"
#include "support/PdfReading.h"
#include <QFile>
#include <QThread>
#include <cerrno>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

/// The bytes of a card, whose date may differ from that of a card printed a moment before.
QByteArray BytesWithoutDate(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    const qsizetype date = bytes.indexOf("/CreationDate(");
    EXPECT_GT(date, 0);
    return bytes.remove(date, bytes.indexOf(')', date) - date);
}

} // namespace

TEST_F(DurableCards, ACardIsOnTheDiskBeforeItGetsItsNameAndItsNameBeforeItIsTold)
{
    ASSERT_TRUE(QDir().mkpath(Folder()));
    const DiskCalls disk;
    QStringList whenTold;
    Draw(QStringLiteral("Anna"));
    Printer->EndDocAndTell([&](const JobOutcome& outcome) {
        EXPECT_TRUE(outcome.HandedOver);
        EXPECT_EQ(outcome.File, CardName(1));
        EXPECT_EQ(outcome.JobId, 0);
        EXPECT_EQ(outcome.Reason, QString());
        whenTold = disk.Seen();
    });
    Printer->FinishJobs();
    EXPECT_EQ(whenTold,
              (QStringList{QStringLiteral("bytes to disk"), QStringLiteral("named card-000001.pdf"),
                           QStringLiteral("names to disk Session 3")}));
    EXPECT_EQ(WordsOfPdf(CardPath(1)).at(0).Text, QStringLiteral("Anna"));
}

TEST_F(DurableCards, AFolderThatIsMadeForACardIsOnTheDiskToo)
{
    const DiskCalls disk;
    EXPECT_TRUE(OutcomeOfCard().HandedOver);
    const QString program = QFileInfo(m_program.path()).fileName();
    EXPECT_EQ(disk.Seen().first(2), (QStringList{QStringLiteral("names to disk ") + program,
                                                 QStringLiteral("names to disk Printed")}));
    EXPECT_EQ(disk.Seen().size(), 5);
}

TEST_F(DurableCards, WithoutALedgerNothingIsForcedToTheDisk)
{
    Printer->SetDurable(false);
    const DiskCalls disk;
    PrintCard();
    ASSERT_EQ(Told.size(), 1) << "told at once";
    EXPECT_TRUE(Told[0].HandedOver);
    EXPECT_EQ(Told[0].File, CardName(1));
    EXPECT_EQ(disk.Seen(), QStringList{QStringLiteral("named card-000001.pdf")});
}

TEST_F(DurableCards, ACardHasTheSameBytesAsWithoutALedger)
{
    PrintCard();
    Printer->SetDurable(false);
    ASSERT_EQ(Told.size(), 1) << "the switch finishes the jobs under way";
    PrintCard();
    ASSERT_EQ(Told.size(), 2);
    const QByteArray durable = BytesWithoutDate(CardPath(1));
    EXPECT_GT(durable.size(), 500);
    EXPECT_EQ(durable, BytesWithoutDate(CardPath(2)));
}

TEST_F(DurableCards, AnOutcomeIsToldByTheEventLoopOfTheOneWhoPrints)
{
    const QThread* here = QThread::currentThread();
    const QThread* toldIn = nullptr;
    Draw(QStringLiteral("x"));
    Printer->EndDocAndTell([&](const JobOutcome&) { toldIn = QThread::currentThread(); });
    EXPECT_EQ(toldIn, nullptr) << "before events run";
    ASSERT_TRUE(EventsUntil([&] { return toldIn != nullptr; }));
    EXPECT_EQ(toldIn, here);
}

TEST_F(DurableCards, CardsAreNumberedAndToldInTheOrderOfTheirJobs)
{
    constexpr int cards = 60;
    for (int i = 1; i <= cards; ++i)
        PrintCard(QStringLiteral("Card%1").arg(i));
    ASSERT_TRUE(EventsUntil([&] { return Told.size() == cards; }));
    for (int i = 1; i <= cards; ++i) {
        EXPECT_EQ(Told[i - 1].File, CardName(i));
        EXPECT_EQ(WordsOfPdf(CardPath(i)).at(0).Text, QStringLiteral("Card%1").arg(i));
    }
}

TEST_F(DurableCards, EndDocWaitsUntilItsCardIsOnTheDisk)
{
    PrintCard();
    Draw(QStringLiteral("waited for"));
    Printer->EndDoc();
    EXPECT_EQ(Files(), (QStringList{CardName(1), CardName(2)}));
    EXPECT_EQ(Told.size(), 0) << "nothing is told behind the back of the one who waits";
    ASSERT_TRUE(EventsUntil([&] { return Told.size() == 1; }));
    EXPECT_EQ(Told[0].File, CardName(1));
}

TEST_F(DurableCards, EndDocFailsWithTheReasonOfTheDisk)
{
    DiskCalls disk;
    disk.FailBytes(ENOSPC, 1);
    Draw(QStringLiteral("x"));
    try {
        Printer->EndDoc();
        ADD_FAILURE() << "the card was taken";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::PrinterError);
        EXPECT_EQ(failure.Text(),
                  QStringLiteral("Printer error: %1: No space left on device").arg(Folder()));
    }
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(DurableCards, AllJobsUnderWayAreToldBeforeThePrinterIsGone)
{
    for (int i = 0; i < 5; ++i)
        PrintCard();
    Printer.reset();
    EXPECT_EQ(Told.size(), 5);
    EXPECT_EQ(Files().size(), 5);
}

TEST_F(DurableCards, AJobWithoutAPageIsToldAtOnce)
{
    Printer->EndDocAndTell([this](const JobOutcome& outcome) { Told.append(outcome); });
    ASSERT_EQ(Told.size(), 1);
    EXPECT_FALSE(Told[0].HandedOver);
    EXPECT_EQ(Told[0].Reason, QStringLiteral("Nothing was drawn"));
    EXPECT_EQ(Told[0].File, QString());
}

TEST_F(DurableCards, ACardMayBePrintedWhileAnotherIsTold)
{
    int printed = 0;
    std::function<void(const JobOutcome&)> next = [&](const JobOutcome& outcome) {
        EXPECT_EQ(outcome.File, CardName(++printed));
        if (printed == 5)
            return;
        Draw(QStringLiteral("next"));
        Printer->EndDocAndTell(next);
    };
    Draw(QStringLiteral("first"));
    Printer->EndDocAndTell(next);
    Printer->FinishJobs();
    EXPECT_EQ(printed, 5);
    EXPECT_EQ(Files().size(), 5);
}

} // namespace vantrel::test
