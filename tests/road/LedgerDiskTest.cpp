#include "road/CardAccount.h"
#include "road/LedgerFolder.h"
#include "road/SmallDisk.h"
#include "road/StationProcess.h"
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>
#include <sys/resource.h>

// A full disk, and a station that keeps account of its cards.

namespace vantrel::test {
namespace {

constexpr qint64 BlockBytes = 4096;
/// From no room at all to more than a card, its number and its entry take.
constexpr int MostBlocks = 32;
constexpr int CardsWithRoom = 3;

/// How the room for a station's files is taken and given back.
struct Room
{
    std::function<void(const StationProcess&, qint64 bytes)> Leave;
    std::function<void(const StationProcess&)> Give;
};

/// A station, a host that notes its answers, and want of room.
class Want
{
public:
    Want(const char* ledgerMust, Room room) : m_room(std::move(room))
    {
        m_folder.SetOption("LedgerMust", QLatin1StringView(ledgerMust));
        m_folder.SetStatus("Visible", QStringLiteral("False"));
        const int port = m_folder.WithCapture();
        m_station = std::make_unique<StationProcess>(
            m_folder.Session.ProgramFolder,
            StationStart{.BeforeProgram = [] { std::signal(SIGXFSZ, SIG_IGN); }});
        EXPECT_TRUE(m_station->WaitUntilItListens(port));
        m_host = std::make_unique<AskingHost>(port);
    }

    /// Every record is answered while there is no room, or waits for it.
    void RunThrough(bool mayWait)
    {
        ExpectPrinted(CardsWithRoom);
        for (int blocks = 0; blocks <= MostBlocks; ++blocks) {
            m_room.Leave(*m_station, blocks * BlockBytes);
            Send();
            if (mayWait && !AnswerOrWait())
                break;
            if (!mayWait)
                TakeAnswer();
        }
        // What waits goes on by itself.
        Send();
        m_room.Give(*m_station);
        while (m_answered < m_sent)
            TakeAnswer();
        ExpectPrinted(CardsWithRoom);
    }
    void ExpectAccount()
    {
        m_station->SendSignal(SIGTERM);
        EXPECT_EQ(m_station->ExitCode(), 0);
        EXPECT_EQ(m_folder.StoreIntegrity(), QStringLiteral("ok"));
        const CardAccount account(m_folder.Session.ProgramFolder, 1);
        account.ExpectEnded();
        constexpr std::size_t all = 1000;
        account.ExpectFiles(all);
        EXPECT_EQ(account.Entries().size(), m_outcomes.size());
        for (const auto& [id, entry] : account.Entries())
            EXPECT_EQ(entry.State, m_outcomes[entry.Values.value(0)]) << id;
        std::cout << qPrintable(account.Summary()) << '\n';
    }

private:
    QString Value(int record) const { return QStringLiteral("R%1").arg(record); }
    void Send() { m_host->Send(Value(++m_sent)); }
    void TakeAnswer()
    {
        const QString answer = WithoutId(m_host->Answer());
        const bool printed = answer == QStringLiteral("OK 1");
        EXPECT_TRUE(printed || answer.size() > 10) << qPrintable(answer);
        EXPECT_TRUE(printed || answer.startsWith(QStringLiteral("ERR "))) << qPrintable(answer);
        m_outcomes[Value(++m_answered)] = printed ? LedgerState::Printed : LedgerState::Failed;
    }
    /// Waits for the answer, or until the station says that it cannot write the ledger.
    /// @return whether there was an answer
    bool AnswerOrWait()
    {
        EXPECT_TRUE(m_station->WaitUntilItTells(QStringLiteral("The ledger cannot be written")));
        if (!m_host->HasAnswer())
            return false;
        TakeAnswer();
        return true;
    }
    void ExpectPrinted(int cards)
    {
        for (int card = 0; card < cards; ++card) {
            Send();
            TakeAnswer();
            EXPECT_EQ(m_outcomes[Value(m_answered)], LedgerState::Printed) << m_answered;
        }
    }

    LedgerFolder m_folder;
    Room m_room;
    std::unique_ptr<StationProcess> m_station;
    std::unique_ptr<AskingHost> m_host;
    int m_sent = 0;
    int m_answered = 0;
    std::map<QString, LedgerState> m_outcomes;
};

/// No file may grow beyond so many bytes: what a station meets on a full disk, without a disk.
Room LimitOnFiles()
{
    const auto limit = [](const StationProcess& station, rlim_t bytes) {
        const rlimit file{bytes, RLIM_INFINITY};
        ASSERT_EQ(::prlimit(static_cast<pid_t>(station.Id()), RLIMIT_FSIZE, &file, nullptr), 0);
    };
    return {.Leave = [limit](const StationProcess& station,
                             qint64 bytes) { limit(station, static_cast<rlim_t>(bytes)); },
            .Give = [limit](const StationProcess& station) { limit(station, RLIM_INFINITY); }};
}

void RunOnFullDisk(const char* ledgerMust, bool mayWait)
{
    constexpr int mebibytes = 8;
    const SmallDisk disk(mebibytes);
    Room room = LimitOnFiles();
    if (disk.IsThere())
        room = {.Leave = [&](const StationProcess&, qint64 bytes) { disk.FillUpTo(bytes); },
                .Give = [&](const StationProcess&) { disk.MakeRoom(); }};
    else
        std::cout << "nothing can be mounted here: a limit on files stands for the full disk\n";
    Want want(ledgerMust, room);
    want.RunThrough(mayWait);
    want.ExpectAccount();
}

TEST(LedgerOnFullDisk, FailsCardsWithTheirReasonsAndGoesOnWhenThereIsRoom)
{
    RunOnFullDisk("False", false);
}

TEST(LedgerOnFullDisk, LetsRecordsWaitWhereTheLedgerMustBeKept)
{
    RunOnFullDisk("True", true);
}

TEST(LedgerOnFullDisk, IsNoOtherThanALimitOnFiles)
{
    Want want("False", LimitOnFiles());
    want.RunThrough(false);
    want.ExpectAccount();
}

} // namespace
} // namespace vantrel::test
