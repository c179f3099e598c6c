#include "ledger/LedgerBatches.h"
#include "road/AdminRun.h"
#include "road/PrintFolder.h"
#include "road/StationProcess.h"
#include "road/TestedProgram.h"
#include "station/session/StoreLocation.h"
#include "store/Connection.h"
#include "store/StoreDatabase.h"
#include "support/Events.h"
#include "support/PdfReading.h"
#include "support/PrivateCups.h"
#include "support/ProcessSignal.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QThread>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

// Runs of `vantrel-print` that are interrupted, killed, or meet a terminal or each other.

namespace vantrel::test {

namespace {

class PrintFaults : public ::testing::Test
{
protected:
    using Outcome = PrintFolder::Outcome;

    /// Waits until a run has printed some cards into a folder.
    static void WaitForCards(const QString& folder, int count)
    {
        ASSERT_TRUE(EventsUntil([&] { return PrintFolder::CardsIn(folder).size() >= count; }));
    }

    PrintFolder Folder;
    const QString Home = Folder.Session.ProgramFolder;
    const QString Printed = Folder.PathOf(QStringLiteral("Printed/Print"));
};

/// The row to go on with, from what an interrupted run says.
int NextRowOf(const PrintFolder::Outcome& outcome)
{
    const QString line = outcome.Errors.value(outcome.Errors.size() - 1);
    const QString beginning = QStringLiteral("vantrel-print: Interrupted. Go on with --first ");
    EXPECT_TRUE(line.startsWith(beginning)) << line.toStdString();
    return line.mid(beginning.size()).chopped(1).toInt();
}

/// What a program that has ended has written to a terminal. One read may give a part of it.
QByteArray AllShownOn(int host)
{
    QByteArray shown;
    std::array<char, 4096> part{};
    // At the end of it there is nobody who could write, which is an error.
    for (ssize_t count = 0; (count = ::read(host, part.data(), part.size())) > 0;)
        shown.append(part.data(), count);
    return shown;
}

} // namespace

TEST_F(PrintFaults, AnInterruptedRunSaysWhereToGoOnAndNoRowIsLostOrPrintedTwice)
{
    for (const char* workers : {"--workers=1", "--workers=2"}) {
        SCOPED_TRACE(workers);
        PrintFolder folder;
        constexpr int rowCount = 1500;
        const QString rows = folder.WriteRows(rowCount);
        const QString printed = folder.PathOf(QStringLiteral("Printed/Print"));
        int next = 1;
        int runs = 0;
        while (next > 0) {
            const auto run = folder.Start(
                {rows, QString::fromLatin1(workers), QStringLiteral("--first=%1").arg(next)});
            // The second run goes to its end.
            if (runs++ == 0) {
                WaitForCards(printed, 1);
                SendSignalTo(*run, SIGINT);
            }
            const Outcome outcome = PrintFolder::EndOf(*run);
            ASSERT_TRUE(outcome.Code == 0 || outcome.Code == 130) << outcome.Code;
            next = outcome.Code == 130 ? NextRowOf(outcome) : 0;
        }
        const auto entries = folder.Entries();
        ASSERT_EQ(entries.size(), static_cast<std::size_t>(rowCount));
        EXPECT_EQ(PrintFolder::CardsIn(printed).size(), rowCount);
        int row = 0;
        for (const auto& [id, entry] : entries) {
            ++row;
            EXPECT_EQ(entry.State, LedgerState::Printed);
            EXPECT_EQ(entry.Values.at(0), QStringLiteral("A%1").arg(row));
            EXPECT_EQ(entry.Cards.at(0).Numbers.at(0), QString::number(1000 + row));
        }
        EXPECT_EQ(folder.StoredNumber(), QString::number(1000 + rowCount));
    }
}

TEST_F(PrintFaults, AnInterruptedWaitForInputNamesTheRowThatIsAwaited)
{
    const auto run = Folder.Start({QStringLiteral("-")});
    run->write("Ada,x\nBea,x\nCid");
    WaitForCards(Printed, 2);
    SendSignalTo(*run, SIGINT);
    const Outcome outcome = PrintFolder::EndOf(*run);
    EXPECT_EQ(outcome.Code, 130);
    EXPECT_EQ(NextRowOf(outcome), 3);
}

TEST_F(PrintFaults, AnInterruptedRunNamesNoRowBeforeItsFirst)
{
    const auto run = Folder.Start({QStringLiteral("-"), QStringLiteral("--first=50")});
    run->write("Ada,x\nBea,x\n");
    // Who has its lock is past the beginning, where nothing would be told.
    ASSERT_TRUE(EventsUntil(
        [&] { return QFileInfo::exists(Folder.PathOf(QStringLiteral("Print-1001.lock"))); }));
    SendSignalTo(*run, SIGINT);
    const Outcome outcome = PrintFolder::EndOf(*run);
    EXPECT_EQ(outcome.Code, 130);
    EXPECT_EQ(NextRowOf(outcome), 50);
}

TEST_F(PrintFaults, AnInterruptWithinTheLastRowsIsNoEndInOrder)
{
    constexpr int rowCount = 60;
    const QString rows = Folder.WriteRows(rowCount);
    std::size_t before = 0;
    for (int round = 0; round < 8; ++round) {
        SCOPED_TRACE(round);
        const QString book = Folder.PathOf(QStringLiteral("book-%1.pdf").arg(round));
        const auto run = Folder.Start({rows, QStringLiteral("--one"), book});
        // The file is at its end when the rows are in the ledger, and their pages are being drawn.
        ASSERT_TRUE(EventsUntil([&] { return Folder.Entries().size() > before; }));
        QThread::msleep(static_cast<unsigned long>(round));
        SendSignalTo(*run, SIGINT);
        const Outcome outcome = PrintFolder::EndOf(*run);
        EXPECT_TRUE(outcome.Code == 0 || outcome.Code == 130) << outcome.Code;
        EXPECT_EQ(QFileInfo::exists(book), outcome.Code == 0);
        if (outcome.Code == 0) {
            EXPECT_EQ(PagesOfPdf(book), rowCount);
        } else {
            EXPECT_EQ(NextRowOf(outcome), 1);
        }
        before = Folder.Entries().size();
    }
}

TEST_F(PrintFaults, AnInterruptedBookLeavesNoFileAndItsCardsAreVoid)
{
    const QString book = Folder.PathOf(QStringLiteral("all.pdf"));
    const auto run = Folder.Start({QStringLiteral("-"), QStringLiteral("--one"), book});
    // When a row is in the ledger, the one before it is drawn. A row that is not yet begun goes
    // out of the ledger again and gives its number back.
    run->write("Ada,x\n");
    ASSERT_TRUE(EventsUntil([&] { return Folder.Entries().size() == 1; }));
    run->write("Bea,x\n");
    ASSERT_TRUE(EventsUntil([&] { return Folder.Entries().size() == 2; }));
    SendSignalTo(*run, SIGINT);
    const Outcome outcome = PrintFolder::EndOf(*run);
    EXPECT_EQ(outcome.Code, 130);
    EXPECT_EQ(NextRowOf(outcome), 1);
    EXPECT_FALSE(QFileInfo::exists(book));
    const auto entries = Folder.Entries();
    EXPECT_TRUE(entries.contains(1));
    for (const auto& [id, entry] : entries) {
        EXPECT_EQ(entry.State, LedgerState::Void) << id;
        EXPECT_EQ(entry.Cards.at(0).Numbers.value(0), QString::number(1000 + id));
    }
}

TEST_F(PrintFaults, AfterKillsEveryCardIsAccountedForAndNoNumberComesTwice)
{
    constexpr int kills = 12;
    constexpr unsigned longestLifeMs = 120;
    std::mt19937 random(std::random_device{}());
    const QString rows = Folder.WriteRows(5000);
    for (int kill = 0; kill < kills; ++kill) {
        const auto run = Folder.Start({rows, QStringLiteral("--workers=%1").arg(1 + kill % 2)});
        QThread::msleep(random() % longestLifeMs);
        SendSignalTo(*run, SIGKILL);
        run->waitForFinished();
        // What its processes had in hand comes to its end before the folder is free again.
        ASSERT_TRUE(EventsUntil([&] {
            return Folder.Run({QStringLiteral("-"), QStringLiteral("--quiet")}).Code == 0;
        }));
    }
    EXPECT_EQ(Folder.Run({rows, QStringLiteral("--count=3")}).Code, 0);
    const QStringList found = Folder.Cards();
    QSet<QString> files(found.begin(), found.end());
    QSet<QString> numbers;
    int row = 0;
    for (const auto& [id, entry] : Folder.Entries()) {
        ASSERT_EQ(entry.Cards.size(), 1U) << id;
        const LedgerCard& card = entry.Cards[0];
        EXPECT_FALSE(numbers.contains(card.Numbers.at(0))) << id;
        numbers.insert(card.Numbers.at(0));
        const bool isPrinted = entry.State == LedgerState::Printed;
        EXPECT_TRUE(isPrinted || entry.State == LedgerState::Void) << id;
        EXPECT_EQ(files.remove(card.File), isPrinted) << id << ' ' << card.File.toStdString();
        if (isPrinted && ++row % 50 == 1) {
            EXPECT_EQ(TextOfPdf(card.File),
                      entry.Values.at(0) + QStringLiteral(" x ") + card.Numbers.at(0));
        }
    }
    EXPECT_TRUE(files.isEmpty());
}

TEST_F(PrintFaults, AKilledBookLeavesNoFileAndTheLedgerToolTellsItsNumbersAsVoid)
{
    const QString book = Folder.PathOf(QStringLiteral("all.pdf"));
    const auto run = Folder.Start({QStringLiteral("-"), QStringLiteral("--one"), book});
    run->write("Ada,x\nBea,x\n");
    ASSERT_TRUE(EventsUntil([&] { return Folder.Entries().size() == 2; }));
    SendSignalTo(*run, SIGKILL);
    run->waitForFinished();
    EXPECT_FALSE(QFileInfo::exists(book));
    const test::Outcome counts =
        RunAdmin({QStringLiteral("ledger"), QStringLiteral("counts"), Home});
    EXPECT_TRUE(counts.Out.contains(QStringLiteral("1001 1002"))) << counts.Out.toStdString();
    for (const auto& [id, entry] : Folder.Entries())
        EXPECT_EQ(entry.State, LedgerState::Void);
}

TEST_F(PrintFaults, TwoRunsAtOnceShareNoNumberAndNoFolder)
{
    const QString other = Folder.PathOf(QStringLiteral("other"));
    const auto first = Folder.Start({QStringLiteral("-")});
    first->write("Ada,x\n");
    WaitForCards(Printed, 1);
    const Outcome refused = Folder.Run({QStringLiteral("-")}, "Bea,x\n");
    EXPECT_EQ(refused.Code, 2);
    EXPECT_EQ(
        refused.Errors,
        QStringList({QStringLiteral("vantrel-print: Another run prints into %1.").arg(Printed)}));
    EXPECT_EQ(Folder.Run({QStringLiteral("-"), QStringLiteral("--each"), other}, "Bea,x\n").Code,
              0);
    first->write("Cid,x\n");
    WaitForCards(Printed, 2);
    first->closeWriteChannel();
    EXPECT_EQ(PrintFolder::EndOf(*first).Code, 0);
    EXPECT_EQ(PrintFolder::TextsOf(Folder.Cards()),
              QStringList({QStringLiteral("Ada x 1001"), QStringLiteral("Cid x 1003")}));
    const auto entries = Folder.Entries();
    EXPECT_EQ(entries.at(1).Session, FirstRunSession);
    EXPECT_EQ(entries.at(2).Session, FirstRunSession + 1);
}

TEST_F(PrintFaults, AWorkerThatIsKilledStopsTheRunAndItsCardsAreAccountedFor)
{
    const auto run = Folder.Start({Folder.WriteRows(20'000), QStringLiteral("--workers=2")});
    WaitForCards(Printed, 1);
    QProcess children;
    children.start(QStringLiteral("pgrep"),
                   {QStringLiteral("-P"), QString::number(run->processId())});
    ASSERT_TRUE(children.waitForFinished());
    const int worker = children.readAllStandardOutput().split('\n').at(0).toInt();
    ASSERT_GT(worker, 0);
    ::kill(worker, SIGKILL);
    const Outcome outcome = PrintFolder::EndOf(*run);
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_TRUE(outcome.Errors.last().startsWith(
        QStringLiteral("vantrel-print: Stopped: A process that printed has ended.")))
        << outcome.Errors.last().toStdString();
    const QStringList found = Folder.Cards();
    QSet<QString> files(found.begin(), found.end());
    for (const auto& [id, entry] : Folder.Entries()) {
        const bool isPrinted = entry.State == LedgerState::Printed;
        EXPECT_TRUE(isPrinted || entry.State == LedgerState::Failed) << id;
        EXPECT_EQ(files.remove(entry.Cards.at(0).File), isPrinted) << id;
    }
    EXPECT_TRUE(files.isEmpty());
}

TEST_F(PrintFaults, AStoreThatIsHeldStopsTheRunWithAReason)
{
    Connection holder;
    holder.Open(StoreLocation(Home));
    holder.BeginTrans();
    const auto run = Folder.Start({QStringLiteral("-")});
    run->write("Ada,x\n");
    run->closeWriteChannel();
    // A server ends a transaction that stands still.
    while (run->state() != QProcess::NotRunning && !run->waitForFinished(1000))
        holder.Database().Execute(QStringLiteral("SELECT 1"));
    const Outcome outcome = PrintFolder::EndOf(*run);
    holder.RollbackTrans();
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_TRUE(outcome.Errors.last().startsWith(QStringLiteral("vantrel-print: Stopped: ")));
    EXPECT_TRUE(outcome.Errors.last().endsWith(QStringLiteral(" Go on with --first 1.")));
    EXPECT_TRUE(Folder.Cards().isEmpty());
    EXPECT_EQ(Folder.StoredNumber(), QStringLiteral("1000"));
}

TEST_F(PrintFaults, APrinterThatTakesNoJobStopsTheRunBeforeItCostsEveryRowItsNumber)
{
    PrivateCups server;
    server.AddQueue(QStringLiteral("Cards"));
    server.Reject(QStringLiteral("Cards"));
    const Outcome outcome =
        Folder.Run({Folder.WriteRows(300), QStringLiteral("--printer"), QStringLiteral("Cards")});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Errors.last(),
              QStringLiteral("vantrel-print: Stopped: 64 rows failed one after the other. "
                             "Go on with --first 1."));
    EXPECT_EQ(Folder.StoredNumber(), QStringLiteral("1064"));
}

TEST_F(PrintFaults, ABarShowsOnATerminalAndNowhereElse)
{
    const QString rows = Folder.WriteRows(3);
    EXPECT_EQ(Folder.Run({rows}).Errors, QStringList());
    const int host = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(host, 0);
    ASSERT_EQ(::grantpt(host), 0);
    ASSERT_EQ(::unlockpt(host), 0);
    const QByteArray terminal = ::ptsname(host);
    QProcess run;
    run.setStandardErrorFile(QString::fromLocal8Bit(terminal));
    run.start(TestedProgram(VANTREL_PRINT_PROGRAM), {Home, QStringLiteral("Badge"), rows});
    ASSERT_TRUE(run.waitForFinished());
    const QByteArray shown = AllShownOn(host);
    ::close(host);
    EXPECT_TRUE(shown.contains("rows")) << shown.constData();
    EXPECT_TRUE(shown.contains("[")) << shown.constData();
    EXPECT_TRUE(shown.endsWith("\r\033[K")) << shown.constData();
}

} // namespace vantrel::test
