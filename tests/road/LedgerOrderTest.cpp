#include "road/CardAccount.h"
#include "road/LedgerFolder.h"
#include "road/LockedStore.h"
#include "road/StationProcess.h"
#include "samples/FreshInstall.h"
#include "station/session/StoreLocation.h"
#include "store/StoreDatabase.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/prctl.h>

// A ledger that is out of order while a station runs.

namespace vantrel::test {
namespace {

const QString Ok = QStringLiteral("OK 1");
const QString CannotBeWritten = QStringLiteral("The ledger cannot be written");
const QString CanBeWrittenAgain = QStringLiteral("The ledger can be written again");

/// Root may write in spite of the mode; without this capability it may not, like any other user.
void ObeyModes()
{
    ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
}

class LedgerOutOfOrder : public ::testing::Test
{
protected:
    /// Starts a station on the folder as it is now.
    void Start(const char* ledgerMust, std::function<void()> beforeProgram = {})
    {
        Folder.SetOption("LedgerMust", QLatin1StringView(ledgerMust));
        const int port = Folder.WithCapture();
        Station = std::make_unique<StationProcess>(
            Folder.Session.ProgramFolder, StationStart{.BeforeProgram = std::move(beforeProgram)});
        ASSERT_TRUE(Station->WaitUntilItListens(port));
        Host = std::make_unique<AskingHost>(port);
    }
    void Change(const QString& statement)
    {
        const auto store = OpenStoreDatabase(StoreLocation(Folder.Session.ProgramFolder));
        store->Execute(statement);
    }
    /// The store's journals have its own mode, so whoever changes one changes all of them.
    void SetModeOfStore(QFile::Permissions mode) const
    {
        const QFileInfo store(LayoutDatabasePath(Folder.Session.ProgramFolder));
        const QDir folder = store.dir();
        for (const QString& name : folder.entryList({store.fileName() + QLatin1Char('*')}))
            EXPECT_TRUE(QFile::setPermissions(folder.filePath(name), mode));
    }
    /// Ends the station. Each value has one entry in this state, and the account is right.
    void ExpectEntries(const std::map<QString, LedgerState>& states)
    {
        Station->SendSignal(SIGTERM);
        EXPECT_EQ(Station->ExitCode(), 0);
        const CardAccount account(Folder.Session.ProgramFolder, 1);
        account.ExpectEnded();
        account.ExpectFiles(states.size());
        std::map<QString, LedgerState> found;
        for (const auto& [id, entry] : account.Entries())
            found.emplace(entry.Values.value(0), entry.State);
        EXPECT_EQ(account.Entries().size(), states.size());
        EXPECT_EQ(found, states);
    }
    static LedgerState StateOf(const QString& answer)
    {
        return WithoutId(answer) == Ok ? LedgerState::Printed : LedgerState::Failed;
    }

    LedgerFolder Folder;
    std::unique_ptr<StationProcess> Station;
    std::unique_ptr<AskingHost> Host;
};

TEST_F(LedgerOutOfOrder, LockedForTenSecondsItAnswersEachRecordAndGoesOn)
{
    Start("False");
    ASSERT_EQ(WithoutId(Host->Ask(QStringLiteral("A"))), Ok);
    {
        const LockedStore locked(Folder.Session.ProgramFolder);
        Host->Send(QStringLiteral("B"));
        QThread::sleep(10);
    }
    const QString answer = Host->Answer();
    EXPECT_TRUE(StateOf(answer) == LedgerState::Printed ||
                WithoutId(answer).startsWith(QStringLiteral("ERR The number could not be taken")))
        << qPrintable(answer);
    EXPECT_EQ(WithoutId(Host->Ask(QStringLiteral("C"))), Ok);
    ExpectEntries({{QStringLiteral("A"), LedgerState::Printed},
                   {QStringLiteral("B"), StateOf(answer)},
                   {QStringLiteral("C"), LedgerState::Printed}});
}

TEST_F(LedgerOutOfOrder, LockedForTenSecondsItTakesNothingWhereTheLedgerMustBeKept)
{
    Start("True");
    ASSERT_EQ(WithoutId(Host->Ask(QStringLiteral("A"))), Ok);
    {
        const LockedStore locked(Folder.Session.ProgramFolder);
        Host->Send(QStringLiteral("B"));
        Host->Send(QStringLiteral("C"));
        QThread::sleep(10);
        EXPECT_FALSE(Host->HasAnswer());
    }
    EXPECT_EQ(WithoutId(Host->Answer()), Ok);
    EXPECT_EQ(WithoutId(Host->Answer()), Ok);
    EXPECT_TRUE(Station->WaitUntilItTells(CanBeWrittenAgain));
    ExpectEntries({{QStringLiteral("A"), LedgerState::Printed},
                   {QStringLiteral("B"), LedgerState::Printed},
                   {QStringLiteral("C"), LedgerState::Printed}});
}

TEST_F(LedgerOutOfOrder, WithoutAColumnItPrintsOnAndIsWrittenWhenItIsMended)
{
    Start("False");
    ASSERT_EQ(WithoutId(Host->Ask(QStringLiteral("A"))), Ok);
    Change(QStringLiteral("ALTER TABLE LedgerCards DROP COLUMN Reason"));
    EXPECT_EQ(WithoutId(Host->Ask(QStringLiteral("B"))), Ok);
    EXPECT_EQ(WithoutId(Host->Ask(QStringLiteral("C"))), Ok);
    EXPECT_TRUE(Station->WaitUntilItTells(CannotBeWritten));
    Change(QStringLiteral("ALTER TABLE LedgerCards ADD COLUMN Reason TEXT NOT NULL DEFAULT ''"));
    // Without a further record.
    EXPECT_TRUE(Station->WaitUntilItTells(CanBeWrittenAgain));
    EXPECT_EQ(WithoutId(Host->Ask(QStringLiteral("D"))), Ok);
    ExpectEntries({{QStringLiteral("A"), LedgerState::Printed},
                   {QStringLiteral("B"), LedgerState::Printed},
                   {QStringLiteral("C"), LedgerState::Printed},
                   {QStringLiteral("D"), LedgerState::Printed}});
}

TEST_F(LedgerOutOfOrder, WithoutAColumnAtTheStartItTakesNothingWhereItMustBeKept)
{
    Start("True");
    ASSERT_EQ(WithoutId(Host->Ask(QStringLiteral("A"))), Ok);
    Station->SendSignal(SIGTERM);
    ASSERT_EQ(Station->ExitCode(), 0);
    Change(QStringLiteral("ALTER TABLE LedgerEntries DROP COLUMN Hash"));
    Start("True");
    Host->Send(QStringLiteral("B"));
    EXPECT_TRUE(Station->WaitUntilItTells(CannotBeWritten));
    EXPECT_FALSE(Host->HasAnswer());
    Change(QStringLiteral("ALTER TABLE LedgerEntries ADD COLUMN Hash TEXT NOT NULL DEFAULT ''"));
    EXPECT_EQ(WithoutId(Host->Answer()), Ok);
    ExpectEntries(
        {{QStringLiteral("A"), LedgerState::Printed}, {QStringLiteral("B"), LedgerState::Printed}});
}

TEST_F(LedgerOutOfOrder, AColumnOfALaterReleaseChangesNothing)
{
    Start("True");
    ASSERT_EQ(WithoutId(Host->Ask(QStringLiteral("A"))), Ok);
    for (const char* table : {"LedgerEntries", "LedgerRecords", "LedgerCards", "LedgerPages"})
        Change(
            QStringLiteral("ALTER TABLE %1 ADD COLUMN Later TEXT").arg(QLatin1StringView(table)));
    EXPECT_EQ(WithoutId(Host->Ask(QStringLiteral("B"))), Ok);
    ExpectEntries(
        {{QStringLiteral("A"), LedgerState::Printed}, {QStringLiteral("B"), LedgerState::Printed}});
}

TEST_F(LedgerOutOfOrder, InAFileThatMayOnlyBeReadItIsWrittenWhenTheFileMayBeWritten)
{
    SetModeOfStore(QFile::ReadOwner);
    Start("True", ObeyModes);
    Host->Send(QStringLiteral("A"));
    EXPECT_TRUE(Station->WaitUntilItTells(CannotBeWritten));
    EXPECT_FALSE(Host->HasAnswer());
    SetModeOfStore(QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(WithoutId(Host->Answer()), Ok);
    EXPECT_TRUE(Station->WaitUntilItTells(CanBeWrittenAgain));
    ExpectEntries({{QStringLiteral("A"), LedgerState::Printed}});
}

TEST_F(LedgerOutOfOrder, InAFileThatMayOnlyBeReadCardsWithoutNumbersPrintAllTheSame)
{
    Folder.SetOption("UniqueNumbers", QStringLiteral("False"));
    SetModeOfStore(QFile::ReadOwner);
    Start("False", ObeyModes);
    EXPECT_EQ(WithoutId(Host->Ask(QStringLiteral("A"))), Ok);
    EXPECT_TRUE(Station->WaitUntilItTells(CannotBeWritten));
    SetModeOfStore(QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_TRUE(Station->WaitUntilItTells(CanBeWrittenAgain));
    ExpectEntries({{QStringLiteral("A"), LedgerState::Printed}});
}

} // namespace
} // namespace vantrel::test
