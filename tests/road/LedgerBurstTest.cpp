#include "road/CardAccount.h"
#include "road/LedgerFolder.h"
#include "road/StationProcess.h"
#include "support/Events.h"
#include "support/Host.h"
#include "support/Memory.h"
#include <QFileInfo>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>

// A host that sends its records in one connection without waiting for answers.

namespace vantrel::test {
namespace {

constexpr int Records = 600;

QByteArray Burst()
{
    QByteArray burst;
    for (int record = 1; record <= Records; ++record)
        burst += "<R" + QByteArray::number(record) + "+7>";
    return burst;
}

TEST(LedgerBurst, IsPrintedAndAnsweredInItsOrderWithMemoryFlat)
{
    LedgerFolder folder;
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    const Host host(port);
    constexpr int settled = Records / 3;
    QByteArray unsent = Burst();
    QByteArray received;
    int memory = 0;
    ASSERT_TRUE(EventsUntil([&] {
        unsent.remove(0, host.SendWithoutWaiting(unsent));
        received += host.Received();
        const auto answers = received.count('\n');
        if (memory == 0 && answers >= settled)
            memory = station.MemoryMiB();
        return answers >= Records || !station.IsRunning();
    }));
    const int memoryAtEnd = station.MemoryMiB();
    station.SendSignal(SIGTERM);
    ASSERT_EQ(station.ExitCode(), 0);

    const CardAccount account(folder.Session.ProgramFolder, 1);
    account.ExpectEnded();
    constexpr std::size_t atMostRead = 30;
    account.ExpectFiles(atMostRead);
    ASSERT_EQ(account.Entries().size(), static_cast<std::size_t>(Records));
    const QList<QByteArray> answers = received.split('\n');
    int place = 0;
    for (const auto& [id, entry] : account.Entries()) {
        ++place;
        EXPECT_EQ(answers.value(place - 1), "OK " + QByteArray::number(id) + " 1\r");
        EXPECT_EQ(entry.Values.value(0), QStringLiteral("R%1").arg(place));
        const LedgerCard& card = entry.Cards.at(0);
        EXPECT_EQ(card.File, QFileInfo(folder.PathOfCard(place)).fileName());
        EXPECT_EQ(card.Numbers.value(0), QString::number(LedgerFolder::NumberBefore + place));
    }
    constexpr int room = MemoryRoom(16);
    EXPECT_LE(memoryAtEnd, memory + room);
    std::cout << Records << " records; after " << settled << " answers " << memory
              << " MiB, at the end " << memoryAtEnd << " MiB\n";
}

} // namespace
} // namespace vantrel::test
