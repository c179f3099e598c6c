#include "ledger/LedgerStations.h"
#include "ledger/LedgerTables.h"
#include "road/PrintFolder.h"
#include "road/ServerStore.h"
#include "road/StationProcess.h"
#include "store/StoreDatabase.h"
#include "support/Events.h"
#include "support/PrivatePostgres.h"
#include <QDateTime>
#include <QFileInfo>
#include <QSet>
#include <gtest/gtest.h>

// Cards from a file on a folder whose store is on a server, which stations of other machines share.

namespace vantrel::test {

namespace {

class PrintOnServer : public ::testing::Test
{
protected:
    using Outcome = PrintFolder::Outcome;

    PrintOnServer() { PutStoreOnServer(Home, Address, Address); }

    /// What the store tells of a station of another machine that runs now.
    void NoteStationElsewhere(int session) const
    {
        const auto store = OpenStoreDatabase(Address);
        MakeLedgerTables(*store);
        LedgerStation station;
        station.Machine = QStringLiteral("elsewhere:/var/lib/vantrel");
        station.Session = session;
        station.Started = station.Seen = QDateTime::currentMSecsSinceEpoch();
        NoteStation(*store, station);
    }
    /// Loses the server while a run prints, and lets another run go on where the first one says.
    void LoseServer(const QString& workers)
    {
        constexpr int rows = 2000;
        const QString file = Folder.WriteRows(rows);
        const auto run = Folder.Start({file, workers});
        ASSERT_TRUE(EventsUntil([&] { return !Folder.Cards().isEmpty(); }));
        Server.Kill();
        const Outcome stopped = PrintFolder::EndOf(*run);
        Server.Start();
        ASSERT_EQ(stopped.Code, 1) << stopped.Errors.join(u'\n').toStdString();
        const QString last = stopped.Errors.last();
        ASSERT_TRUE(last.startsWith(QStringLiteral("vantrel-print: Stopped: ")))
            << last.toStdString();
        const QString next = last.section(QStringLiteral(" Go on with --first "), 1).chopped(1);
        ASSERT_GT(next.toInt(), 1) << last.toStdString();
        // Rows that other processes had in hand are told one by one.
        const auto failed =
            static_cast<int>(stopped.Errors.filter(QStringLiteral("vantrel-print: Line ")).size());
        EXPECT_EQ(stopped.Errors.filter(QStringLiteral("was changed")), QStringList());
        const Outcome further = Folder.Run({file, workers, QStringLiteral("--first=") + next});
        EXPECT_EQ(further.Code, 0) << further.Errors.join(u'\n').toStdString();
        ExpectOneCardForEachRow(rows - failed);
        if (workers.endsWith(u'1')) {
            EXPECT_EQ(failed, 0);
        }
    }
    /// Each row has one card, which is a file and is printed in the ledger. Others are void, and no
    /// number is on two.
    void ExpectOneCardForEachRow(int rows) const
    {
        QSet<QString> printed;
        QSet<QString> numbers;
        for (const auto& [id, entry] : Folder.Entries()) {
            ASSERT_EQ(entry.Cards.size(), 1U) << id;
            const LedgerCard& card = entry.Cards.at(0);
            EXPECT_FALSE(numbers.contains(card.Numbers.value(0))) << id;
            numbers.insert(card.Numbers.value(0));
            if (entry.State == LedgerState::Void)
                continue;
            EXPECT_EQ(entry.State, LedgerState::Printed) << id;
            EXPECT_TRUE(QFileInfo::exists(card.File)) << id;
            EXPECT_FALSE(printed.contains(entry.Values.value(0))) << id;
            printed.insert(entry.Values.value(0));
        }
        EXPECT_EQ(printed.size(), rows);
        EXPECT_EQ(Folder.Cards().size(), rows);
    }

    PrivatePostgres Server;
    QString Address = Server.NewDatabase();
    PrintFolder Folder;
    const QString Home = Folder.Session.ProgramFolder;
};

} // namespace

TEST_F(PrintOnServer, ARowIsInTheLedgerAlsoWhereAStationElsewhereHasTheFirstNumber)
{
    NoteStationElsewhere(1);
    const Outcome outcome = Folder.Run({Folder.WriteRows(3)});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Errors, QStringList());
    ExpectOneCardForEachRow(3);
}

TEST_F(PrintOnServer, ARunDoesNotCountAsAStation)
{
    const auto run = Folder.Start({QStringLiteral("-")});
    run->write("Ada,x\n");
    ASSERT_TRUE(EventsUntil([&] { return Folder.Cards().size() == 1; }));
    EXPECT_TRUE(ReadStations(*OpenStoreDatabase(Address)).empty());
    run->closeWriteChannel();
    EXPECT_EQ(PrintFolder::EndOf(*run).Code, 0);
    EXPECT_TRUE(ReadStations(*OpenStoreDatabase(Address)).empty());
}

TEST_F(PrintOnServer, AConnectionThatIsEndedBetweenTwoRowsIsMadeAnewForTheSecondOne)
{
    const auto run = Folder.Start({QStringLiteral("-")});
    run->write("A1,x\n");
    ASSERT_TRUE(EventsUntil([&] { return Folder.Cards().size() == 1; }));
    // Its outcome is written behind it.
    ASSERT_TRUE(EventsUntil([&] {
        return PrivatePostgres::Run(Address,
                                    QStringLiteral("SELECT max(State) FROM LedgerEntries")) ==
               QStringLiteral("printed");
    }));
    // Ends them, and waits until they are gone.
    const QString ended = PrivatePostgres::Run(
        Address, QStringLiteral("SELECT bool_and(pg_terminate_backend(pid, 60000)) "
                                "FROM pg_stat_activity WHERE datname = current_database() "
                                "AND pid <> pg_backend_pid()"));
    EXPECT_EQ(ended, QStringLiteral("t"));
    run->write("A2,x\n");
    run->closeWriteChannel();
    const Outcome outcome = PrintFolder::EndOf(*run);
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Errors, QStringList());
    ExpectOneCardForEachRow(2);
}

TEST_F(PrintOnServer, AServerThatIsLostStopsTheRunWhichGoesOnWhereItSays)
{
    LoseServer(QStringLiteral("--workers=1"));
}

TEST_F(PrintOnServer, AServerThatIsLostStopsARunOfSeveralProcesses)
{
    LoseServer(QStringLiteral("--workers=2"));
}

} // namespace vantrel::test
