#include "road/BurstHost.h"
#include "road/CardAccount.h"
#include "road/LedgerFolder.h"
#include "road/LongSession.h"
#include "road/ServerStore.h"
#include "road/StationProcess.h"
#include "samples/FreshInstall.h"
#include "station/session/StoreLocation.h"
#include "support/Layouts.h"
#include "support/PrivateCups.h"
#include "support/PrivatePostgres.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>
#include <random>
#include <utility>
#include <vector>

// Very many records through stations on one store, of which one prints jobs of a print server and
// the others files, while the stations are killed and the print server is paused and stopped. The
// store is a file, or on a server that is killed as well.

namespace vantrel::test {
namespace {

constexpr std::size_t MostCardsRead = 300;
/// One record of so many goes to the print server, which is the slower one by far.
constexpr std::size_t RecordsForOneJob = 20;
/// Only ends a test that has failed.
constexpr int LimitMs = 300'000;

/// How many records go through; scripts/long.sh asks for more.
std::size_t RecordCount()
{
    constexpr std::size_t shortRun = 1500;
    const auto asked = qEnvironmentVariable("VANTREL_LONG_RECORDS").toULongLong();
    return asked > 0 ? static_cast<std::size_t>(asked) : shortRun;
}

const QString Queue = QStringLiteral("Cards");

/// A folder with a second layout, whose cards go to a queue of the print server.
class LongFolder : public LedgerFolder
{
public:
    LongFolder()
    {
        constexpr double firstOfQueue = 500'000'000;
        Session.LayoutDb.Open(StoreLocation(Session.ProgramFolder));
        BeginLayout(Session, QStringLiteral("Job"));
        Session.CurrentParams.PrinterDevice = Queue;
        AddField(Session, 1, {300, 300, 300, 2000});
        AddField(Session, 2, {900, 300, 300, 2000});
        AddNumber(Session, firstOfQueue, {1500, 300, 300, 2000});
        SavePage(Session);
        Session.LayoutDb.Close();
    }
    /// @return the port of the session that prints jobs
    int WithQueue(std::uint8_t session)
    {
        const int port = WithCapture(session);
        SetSetting("LastLayout", QStringLiteral("Job"));
        return port;
    }
};

class LongRun : public ::testing::Test
{
protected:
    LongRun()
    {
        Cups.AddQueue(Queue);
        m_time.start();
    }

    /// Sends that many records, with a trouble again and again, and looks at what came of them.
    void Run(std::size_t records)
    {
        constexpr std::size_t troubles = 24;
        SCOPED_TRACE(Seed);
        StartStations();
        for (std::size_t turn = 0; turn < troubles; ++turn) {
            const std::size_t until = records * (turn + 1) / troubles;
            ASSERT_TRUE(GoOnUntil([&] { return Answers() >= until; }));
            for (LongSession* session : Sessions())
                session->Measure();
            Tell();
            Trouble(turn);
        }
        ASSERT_NO_FATAL_FAILURE(ComeToRest());

        const CardAccount account(Folder.Session.ProgramFolder, FileStations());
        account.ExpectEnded();
        ExpectAnswers(account);
        ExpectAllJobsPrinted(account);
        ExpectJobs(account);
        account.ExpectFiles(MostCardsRead);
        ExpectSteadyStore();
        std::cout << qPrintable(account.Summary()) << '\n';
    }

    /// How many stations print files; those of the sessions from 1 on.
    virtual int FileStations() const { return 1; }
    virtual qint64 StoreBytes() const
    {
        return QFileInfo(LayoutDatabasePath(Folder.Session.ProgramFolder)).size();
    }
    /// What else may happen to a store of this kind.
    virtual void TroubleStore() {}
    /// Lets the stations write what they could not write when it came.
    virtual void LetStoreComeToRest() {}
    /// Every answer of the one that prints files names the entry of its card.
    virtual void ExpectAnswers(const CardAccount& account) const
    {
        account.ExpectRecordsOf(Jobs->Host);
        for (const auto& files : Files) {
            account.ExpectRecordsOf(files->Host);
            account.ExpectAnswersOf(files->Host);
        }
        EXPECT_EQ(Folder.StoreIntegrity(), QStringLiteral("ok"));
    }
    /// Whether an entry may be in this state whose host was told so.
    virtual bool IsOutcome(bool ok, LedgerState state) const
    {
        const bool printed = state == LedgerState::Printed || state == LedgerState::Done;
        return ok ? printed : state == LedgerState::Failed;
    }

    void StartStations()
    {
        StationStart withServer;
        withServer.Environment.insert(QStringLiteral("CUPS_SERVER"), Cups.SocketPath());
        const auto last = static_cast<std::uint8_t>(FileStations() + 1);
        std::vector<int> ports;
        for (std::uint8_t session = 1; session < last; ++session)
            ports.push_back(Folder.WithCapture(session));
        const int jobsPort = Folder.WithQueue(last);
        for (std::uint8_t session = 1; session < last; ++session)
            Files.push_back(std::make_unique<LongSession>(Folder, session, ports[session - 1U],
                                                          StationStart{}, Seed + session));
        Jobs = std::make_unique<LongSession>(Folder, last, jobsPort, withServer, Seed);
    }
    std::vector<LongSession*> Sessions() const
    {
        std::vector<LongSession*> sessions;
        for (const auto& files : Files)
            sessions.push_back(files.get());
        sessions.push_back(Jobs.get());
        return sessions;
    }

    std::size_t Answers() const
    {
        std::size_t answers = 0;
        for (const LongSession* session : Sessions())
            answers += session->Host.Answers().size();
        return answers;
    }
    bool GoOnUntil(const std::function<bool()>& holds)
    {
        QElapsedTimer still;
        still.start();
        while (!holds()) {
            bool moved = false;
            for (const auto& files : Files)
                moved |= files->Host.GoOn();
            if (m_ends || Jobs->Host.Answers().size() * RecordsForOneJob <= Answers())
                moved |= Jobs->Host.GoOn();
            if (moved) {
                still.start();
            } else {
                // What the stations tell is taken off their pipes.
                QCoreApplication::processEvents();
                QThread::msleep(1);
            }
            if (still.elapsed() > LimitMs)
                return false;
        }
        return true;
    }
    /// Lets records come for a while.
    void GoOnFor(int milliseconds)
    {
        QElapsedTimer time;
        time.start();
        GoOnUntil([&] { return time.hasExpired(milliseconds); });
    }

    /// One of the troubles, in turn.
    void Trouble(std::size_t turn)
    {
        constexpr int absence = 300;
        switch (turn % 6) {
        case 0:
            Files[turn / 6 % Files.size()]->KillAndStart();
            break;
        case 1:
            Cups.Pause(Queue);
            break;
        case 2:
            Cups.Resume(Queue);
            break;
        case 3:
            Jobs->KillAndStart();
            break;
        case 4:
            // Not killed, and not while a job is on its way to the printer: such a job may be lost.
            Cups.Pause(Queue);
            GoOnFor(absence);
            Cups.Stop();
            GoOnFor(absence);
            Cups.Start();
            Cups.Resume(Queue);
            break;
        default:
            TroubleStore();
        }
    }

    /// Tells how far the run is and what it takes, and notes it.
    void Tell()
    {
        const qint64 store = StoreBytes();
        m_storeSizes.emplace_back(Answers(), store);
        std::cout << Answers() << " answered after " << m_time.elapsed() / 1000 << " s;";
        for (const LongSession* session : Sessions())
            std::cout << ' ' << session->MemoryMiB << " MiB and " << session->Descriptors
                      << " descriptors,";
        std::cout << " the store " << store / 1024 << " KiB" << std::endl;
    }
    /// The store grows by as much for a record at the end of the run as at its middle.
    void ExpectSteadyStore() const
    {
        // The store's file grows in steps, which few records do not even out.
        constexpr std::size_t fewRecords = 20'000;
        if (Answers() < fewRecords)
            return;
        const auto perRecord = [&](std::size_t from, std::size_t to) {
            const auto& [answersBefore, before] = m_storeSizes.at(from);
            const auto& [answersAfter, after] = m_storeSizes.at(to);
            return static_cast<double>(after - before) /
                   static_cast<double>(answersAfter - answersBefore);
        };
        const std::size_t last = m_storeSizes.size() - 1;
        EXPECT_LE(perRecord(last / 2, last), 1.2 * perRecord(0, last / 2));
    }

    /// Lets every record come to its end and every job through the server, and ends the stations.
    void ComeToRest()
    {
        m_ends = true;
        const std::vector<LongSession*> sessions = Sessions();
        for (LongSession* session : sessions)
            session->Host.BeginNothingNew();
        Cups.Resume(Queue);
        const auto isAnswered = [](const LongSession* one) { return one->Host.IsAllAnswered(); };
        ASSERT_TRUE(
            GoOnUntil([&] { return std::all_of(sessions.begin(), sessions.end(), isAnswered); }));
        LetStoreComeToRest();
        for (LongSession* session : sessions)
            EXPECT_EQ(session->End(), 0);
    }

    /// Every answer names the entry of its record, or that it has none. What was answered with OK
    /// has its job, whose data show the record; what was answered with ERR has not.
    void ExpectJobs(const CardAccount& account) const
    {
        std::size_t failed = 0;
        const std::size_t readEvery =
            std::max<std::size_t>(1, Jobs->Host.Answers().size() / MostCardsRead);
        std::size_t place = 0;
        for (const HostAnswer& answer : Jobs->Host.Answers()) {
            failed += answer.Ok ? 0 : 1;
            if (answer.Id == 0 && !answer.Ok)
                continue;
            const auto found = account.Entries().find(answer.Id);
            ASSERT_NE(found, account.Entries().end()) << answer.Id;
            const LedgerEntry& entry = found->second;
            EXPECT_EQ(entry.Values.value(0), answer.Value) << answer.Id;
            EXPECT_TRUE(IsOutcome(answer.Ok, entry.State))
                << answer.Id << ' ' << qPrintable(NameOf(entry.State));
            if (!answer.Ok || entry.State == LedgerState::Doubtful)
                continue;
            ASSERT_EQ(entry.Cards.size(), 1U) << answer.Id;
            ASSERT_TRUE(entry.Cards[0].Job) << answer.Id;
            if (++place % readEvery == 0)
                ExpectJobShows(entry);
        }
        std::cout << Jobs->Host.Answers().size() << " records for the print server, " << failed
                  << " of them were refused\n";
    }
    void ExpectJobShows(const LedgerEntry& entry) const
    {
        const QString number = entry.Cards[0].Numbers.value(0);
        EXPECT_EQ(TextOfPdf(Cups.DataOfJob(*entry.Cards[0].Job)),
                  (entry.Values + QStringList{number}).join(QLatin1Char(' ')))
            << entry.Id;
    }
    /// The server prints each job that it was given once. Of a doubtful card it may have a job, and
    /// of one that failed while it stopped.
    void ExpectAllJobsPrinted(const CardAccount& account) const
    {
        std::vector<int> given;
        int doubtful = 0;
        for (const auto& [id, entry] : account.Entries()) {
            for (const LedgerCard& card : entry.Cards) {
                const bool isGiven =
                    card.State == LedgerState::Printed || card.State == LedgerState::Done;
                if (card.Job && isGiven)
                    given.push_back(*card.Job);
                doubtful += card.Printer == Queue && !isGiven ? 1 : 0;
            }
        }
        // Jobs of doubtful cards may be printed before these.
        const auto left = [&] {
            return std::count_if(given.begin(), given.end(),
                                 [&](int job) { return !QFileInfo::exists(Cups.DataOfJob(job)); });
        };
        QElapsedTimer still;
        still.start();
        for (auto waiting = left(); waiting > 0 && still.elapsed() < LimitMs;) {
            QThread::msleep(10);
            const auto now = left();
            if (now < waiting)
                still.start();
            waiting = now;
        }
        EXPECT_EQ(left(), 0);
        EXPECT_LE(Cups.CountOfPrinted(), static_cast<int>(given.size()) + doubtful);
    }

    const unsigned Seed = std::random_device()();
    PrivateCups Cups;
    LongFolder Folder;
    std::vector<std::unique_ptr<LongSession>> Files;
    std::unique_ptr<LongSession> Jobs;

private:
    QElapsedTimer m_time;
    bool m_ends = false;
    /// The size of the store's file in bytes, by the number of answers.
    std::vector<std::pair<std::size_t, qint64>> m_storeSizes;
};

TEST_F(LongRun, CountsAsManyOutAsInWhateverStopsMeanwhile)
{
    Run(RecordCount());
}

/// The same where the store is on a server, which more stations use. While that is away, records
/// are refused.
class ServerLongRun : public LongRun
{
protected:
    ServerLongRun() { PutStoreOnServer(Folder.Session.ProgramFolder, Address, Address); }

    int FileStations() const override { return 3; }
    qint64 StoreBytes() const override
    {
        return PrivatePostgres::Run(Address,
                                    QStringLiteral("SELECT pg_database_size(current_database())"))
            .toLongLong();
    }
    void TroubleStore() override
    {
        constexpr int absence = 1500;
        Server.Kill();
        GoOnFor(absence);
        Server.Start();
    }
    void LetStoreComeToRest() override { EXPECT_TRUE(ComesToRest(Address)); }
    void ExpectAnswers(const CardAccount& account) const override
    {
        for (const LongSession* session : Sessions())
            account.ExpectAnswersOrRefusalsOf(session->Host);
    }
    bool IsOutcome(bool ok, LedgerState state) const override
    {
        return ok ? LongRun::IsOutcome(ok, state) || state == LedgerState::Doubtful
                  : !LongRun::IsOutcome(true, state);
    }

    PrivatePostgres Server{PrivatePostgres::Commits::Durable};
    QString Address = Server.NewDatabase();
};

TEST_F(ServerLongRun, CountsAsManyOutAsInWhateverStopsMeanwhile)
{
    Run(RecordCount());
}

} // namespace
} // namespace vantrel::test
