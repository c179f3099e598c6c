#include "ledger/LedgerReading.h"
#include "road/AdminRun.h"
#include "road/CardAccount.h"
#include "road/LedgerFolder.h"
#include "road/StationProcess.h"
#include "station/session/StoreLocation.h"
#include "store/StoreDatabase.h"
#include "support/Events.h"
#include <QElapsedTimer>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>
#include <random>

// Cards that are printed again by the command, while a station runs and while none does.

namespace vantrel::test {
namespace {

class LedgerReprint : public ::testing::Test
{
protected:
    void Start()
    {
        Station = std::make_unique<StationProcess>(Folder.Session.ProgramFolder);
        ASSERT_TRUE(Station->WaitUntilItListens(m_port));
    }
    /// Prints one card: entry 1, "A 7 1001".
    void PrintFirst()
    {
        Start();
        AskingHost host(m_port);
        ASSERT_EQ(host.Ask(QStringLiteral("A")), QStringLiteral("OK 1 1"));
    }
    QString AskNext() { return AskingHost(m_port).Ask(QStringLiteral("B")); }
    void End()
    {
        Station->SendSignal(SIGTERM);
        ASSERT_EQ(Station->ExitCode(), 0);
    }
    void AskReprint(const QStringList& further = {}) const
    {
        const QStringList words{QStringLiteral("ledger"), QStringLiteral("reprint"),
                                Folder.Session.ProgramFolder, QStringLiteral("1")};
        ASSERT_EQ(RunAdmin(words + further).Code, 0);
    }
    /// Waits until an entry is not received only any more. @return whether that came
    bool WaitUntilBegun(qlonglong id) const
    {
        constexpr int limitMs = 60'000;
        const auto store = OpenStoreDatabase(StoreLocation(Folder.Session.ProgramFolder));
        QElapsedTimer limit;
        limit.start();
        while (limit.elapsed() < limitMs) {
            if (FindEntry(*store, id, LedgerBytes::Without)->State != LedgerState::Received)
                return true;
        }
        return false;
    }
    CardAccount Account() const { return {Folder.Session.ProgramFolder, 1}; }
    void ExpectReprinted() const
    {
        const CardAccount account = Account();
        const LedgerEntry& reprint = account.Entries().at(2);
        EXPECT_EQ(reprint.State, LedgerState::Printed);
        EXPECT_EQ(reprint.ReprintOf, 1);
        EXPECT_EQ(reprint.Cards.at(0).Numbers, QStringList(QStringLiteral("1001")));
    }

    LedgerFolder Folder;
    std::unique_ptr<StationProcess> Station;

private:
    int m_port = Folder.WithCapture();
};

TEST_F(LedgerReprint, IsCarriedOutByARunningStation)
{
    PrintFirst();
    AskReprint();
    EXPECT_EQ(Folder.TextOfCard(2), QStringLiteral("A 7 1001"));
    EXPECT_EQ(AskNext(), QStringLiteral("OK 3 1"));
    EXPECT_EQ(Folder.TextOfCard(3), QStringLiteral("B 7 1002"));
    End();
    ExpectReprinted();
}

TEST_F(LedgerReprint, WaitsForTheNextStartOfAStoppedStation)
{
    PrintFirst();
    End();
    AskReprint();
    Start();
    EXPECT_EQ(Folder.TextOfCard(2), QStringLiteral("A 7 1001"));
    EXPECT_EQ(AskNext(), QStringLiteral("OK 3 1"));
    End();
    ExpectReprinted();
}

TEST_F(LedgerReprint, ThatAKillInterruptsIsDoubtfulAndNotPrintedAgainByItself)
{
    constexpr int kills = 15;
    constexpr unsigned longestMicroseconds = 20'000;
    PrintFirst();
    End();
    std::mt19937 random(std::random_device{}());
    for (int kill = 0; kill < kills; ++kill) {
        AskReprint({QStringLiteral("--again")});
        const qsizetype cards = Folder.Cards().size();
        StationProcess station(Folder.Session.ProgramFolder);
        // Every other time in the middle of the card, else anywhere around it.
        ASSERT_TRUE(WaitUntilBegun(kill + 2));
        if (kill % 2 != 0)
            QThread::usleep(random() % longestMicroseconds);
        station.SendSignal(SIGKILL);
        EXPECT_EQ(station.ExitCode(), -1);
        EXPECT_LE(Folder.Cards().size(), cards + 1);
    }
    Start();
    EXPECT_EQ(AskNext(), QStringLiteral("OK %1 1").arg(kills + 2));
    End();
    const CardAccount account = Account();
    const auto printed = static_cast<qsizetype>(account.Count(LedgerState::Printed));
    const auto doubtful = static_cast<qsizetype>(account.Count(LedgerState::Doubtful));
    EXPECT_EQ(printed + doubtful, kills + 2);
    EXPECT_GE(Folder.Cards().size(), printed);
    EXPECT_LE(Folder.Cards().size(), printed + doubtful);
    account.ExpectFiles(kills + 2);
    EXPECT_EQ(TextOfPdf(Folder.Cards().last()), QStringLiteral("B 7 1002"));
    std::cout << qPrintable(account.Summary()) << '\n';
}

} // namespace
} // namespace vantrel::test
