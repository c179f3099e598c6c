#include "BatchStation.h"
#include "ledger/LedgerBatches.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerTables.h"
#include "ledger/LedgerTending.h"
#include "station/batch/RunLock.h"
#include "station/capture/StoredRecords.h"
#include "store/StoreDatabase.h"
#include <QDir>
#include <QFile>

// Numbers and ledger of the rows of a file.

namespace vantrel::test {

namespace {

class BatchAccounts : public BatchStation
{
protected:
    BatchAccounts()
    {
        Session.Options.Ledger = true;
        OpenLedger(Session);
        Plan = PlanOf(Target);
    }

    StoreDatabase& Store() { return Session.LayoutDb.Database(); }
    BatchAccount Account(BatchPlace place = {})
    {
        place.Source = QStringLiteral("members.csv");
        place.Device = QStringLiteral("Card Printer");
        return BatchAccount(Session, Target, Plan, std::move(place), FirstRunSession);
    }
    std::vector<LedgerEntry> Entries()
    {
        std::vector<LedgerEntry> entries;
        ReadEntries(Store(), {},
                    [&](const LedgerEntry& entry) { entries.insert(entries.begin(), entry); });
        return entries;
    }
    /// The states of the entries and the numbers on their cards.
    QStringList States()
    {
        QStringList states;
        for (const LedgerEntry& entry : Entries())
            states.append(NameOf(entry.State) + u' ' + entry.Cards.at(0).Numbers.join(u','));
        return states;
    }
    BatchPlace FilesIn(const QString& folder) const
    {
        BatchPlace place;
        place.FileOf = [folder](qint64 number) -> QString {
            return folder + QStringLiteral("/card-%1.pdf").arg(number);
        };
        return place;
    }

    RowPlan Plan;
};

const QString Ada = QStringLiteral("Ada");
const QString Bea = QStringLiteral("Bea");
const QString Cid = QStringLiteral("Cid");

} // namespace

TEST_F(BatchAccounts, RowsAndNumbersAreInTheStoreBeforeTheyPrint)
{
    BatchAccount account = Account();
    Batch batch = RowsOf({Ada, Bea});
    account.Begin(batch);
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1002")}));
    EXPECT_EQ(States(),
              QStringList({QStringLiteral("printing 1001"), QStringLiteral("printing 1002")}));
    const LedgerEntry entry = Entries().at(1);
    EXPECT_EQ(entry.Session, FirstRunSession);
    EXPECT_EQ(entry.Source, QStringLiteral("members.csv:2"));
    EXPECT_EQ(entry.Layout, Name);
    EXPECT_EQ(entry.Values, QStringList({Bea}));
    EXPECT_FALSE(entry.Cards.at(0).PageHash.isEmpty());

    account.End(batch, Print(batch, Plan, Target));
    EXPECT_EQ(States(),
              QStringList({QStringLiteral("printed 1001"), QStringLiteral("printed 1002")}));
    EXPECT_TRUE(Session.Ledger.Runs().empty());
}

TEST_F(BatchAccounts, ARowThatFailsKeepsItsNumberAndItsReason)
{
    BatchAccount account = Account();
    Batch batch = RowsOf({Ada, Bea});
    account.Begin(batch);
    JobOutcome broken;
    broken.Reason = QStringLiteral("No space left on device");
    Station.Printers.Get(QStringLiteral("Card Printer")).Outcomes = {broken};
    account.End(batch, Print(batch, Plan, Target));
    EXPECT_EQ(States(),
              QStringList({QStringLiteral("failed 1001"), QStringLiteral("printed 1002")}));
    EXPECT_EQ(Entries().at(0).Reason, broken.Reason);
}

TEST_F(BatchAccounts, RowsThatWereNotBegunLeaveTheLedgerAndGiveTheirNumbersBack)
{
    BatchAccount account = Account();
    Batch batch = RowsOf({Ada, Bea, Cid});
    account.Begin(batch);
    account.End(batch, Print(batch, Plan, Target, 1));
    EXPECT_EQ(States(), QStringList({QStringLiteral("printed 1001")}));
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1001")}));
    Batch next = RowsOf({Bea, Cid}, 2);
    account.Begin(next);
    EXPECT_EQ(States().at(1), QStringLiteral("printing 1002"));
}

TEST_F(BatchAccounts, NumbersThatHaveRisenSinceAreNotGivenBack)
{
    BatchAccount account = Account();
    Batch batch = RowsOf({Ada, Bea});
    account.Begin(batch);
    Batch other = RowsOf({Cid}, 3);
    TakeNumbersFor(other, Plan);
    account.End(batch, Print(batch, Plan, Target, 1));
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1003")}));
}

TEST_F(BatchAccounts, TheCardsOfABookArePrintedWhenItIsClosed)
{
    BatchPlace place;
    place.Book = QStringLiteral("/cards/all.pdf");
    BatchAccount account = Account(place);
    Batch batch = RowsOf({Ada, Bea, Cid});
    account.Begin(batch);
    JobOutcome whole;
    whole.HandedOver = true;
    JobOutcome broken;
    broken.Reason = QStringLiteral("too large");
    Station.Printers.Get(QStringLiteral("Card Printer")).Outcomes = {whole, broken, whole};
    account.End(batch, Print(batch, Plan, Target));
    EXPECT_TRUE(Session.Ledger.Runs().empty());
    EXPECT_EQ(States(), QStringList({QStringLiteral("printing 1001"), QStringLiteral("failed 1002"),
                                     QStringLiteral("printing 1003")}));
    account.EndBook(true);
    EXPECT_EQ(States(), QStringList({QStringLiteral("printed 1001"), QStringLiteral("failed 1002"),
                                     QStringLiteral("printed 1003")}));
    EXPECT_EQ(Entries().at(0).Cards.at(0).File, place.Book);
}

TEST_F(BatchAccounts, TheCardsOfABookThatIsNotWrittenAreVoid)
{
    BatchPlace place;
    place.Book = QStringLiteral("/cards/all.pdf");
    BatchAccount account = Account(place);
    Batch batch = RowsOf({Ada});
    account.Begin(batch);
    account.End(batch, Print(batch, Plan, Target));
    account.EndBook(false);
    EXPECT_EQ(States(), QStringList({QStringLiteral("void 1001")}));
    EXPECT_EQ(Entries().at(0).Cards.at(0).File, QString());
}

TEST_F(BatchAccounts, ALedgerThatCannotBeWrittenIsLeftOutUnlessItMustBeKept)
{
    BatchAccount account = Account();
    Store().Execute(QStringLiteral("DROP TABLE LedgerCards"));
    Store().Execute(QStringLiteral("CREATE VIEW LedgerCards AS SELECT 1 AS ID"));
    Session.Options.LedgerMust = true;
    Batch batch = RowsOf({Ada});
    EXPECT_NE(FailureOf([&] { account.Begin(batch); }), 0);
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1000")}));
    Session.Options.LedgerMust = false;
    account.Begin(batch);
    EXPECT_FALSE(account.Trouble().isEmpty());
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1001")}));
    account.End(batch, Print(batch, Plan, Target));
    EXPECT_EQ(Printed().join(u' '), QStringLiteral("Ada 1001"));
}

TEST_F(BatchAccounts, NumbersThatCannotBeTakenFailTheBatchAndLeaveNothing)
{
    BatchAccount account = Account();
    Store().Execute(QStringLiteral("DELETE FROM Controls WHERE C_Param_1 = 'AUTO'"));
    Batch batch = RowsOf({Ada});
    EXPECT_EQ(FailureTextOf([&] { account.Begin(batch); }),
              QStringLiteral("The layout Badge was changed meanwhile"));
    EXPECT_TRUE(Entries().empty());
    EXPECT_TRUE(Session.Ledger.Runs().empty());
}

TEST_F(BatchAccounts, AfterAKillCardsWithTheirFilesArePrintedAndTheOthersVoid)
{
    const QString folder = Session.ProgramFolder;
    {
        const RunLock lock(folder);
        ASSERT_EQ(lock.SessionNumber(), FirstRunSession);
        BatchAccount account = Account(FilesIn(folder));
        Batch batch = RowsOf({Ada, Bea});
        batch.FirstFile = 5;
        account.Begin(batch);
        QFile card(folder + QStringLiteral("/card-5.pdf"));
        ASSERT_TRUE(card.open(QIODevice::WriteOnly));
        // A run that lives is left alone.
        EndDeadRuns(folder, Store());
        EXPECT_EQ(States().at(0), QStringLiteral("printing 1001"));
    }
    EndDeadRuns(folder, Store());
    EXPECT_EQ(States(), QStringList({QStringLiteral("printed 1001"), QStringLiteral("void 1002")}));
}

TEST_F(BatchAccounts, AfterAKillWhatWentToAPrintServerIsDoubtful)
{
    {
        const RunLock lock(Session.ProgramFolder);
        BatchAccount account = Account();
        Batch batch = RowsOf({Ada});
        account.Begin(batch);
    }
    EndDeadRuns(Session.ProgramFolder, Store());
    EXPECT_EQ(States(), QStringList({QStringLiteral("doubtful 1001")}));
}

TEST_F(BatchAccounts, RunsAtTheSameTimeHaveSessionNumbersOfTheirOwn)
{
    const RunLock first(Session.ProgramFolder);
    const RunLock second(Session.ProgramFolder);
    EXPECT_EQ(second.SessionNumber(), first.SessionNumber() + 1);
    EXPECT_NE(FailureOf([] { RunLock(QStringLiteral("/nonexistent")); }), 0);
}

TEST_F(BatchAccounts, ARowIsPrintedAgainByTheFirstSession)
{
    BatchAccount account = Account();
    Batch batch = RowsOf({Ada});
    account.Begin(batch);
    account.End(batch, Print(batch, Plan, Target));
    const qlonglong again = AskReprint(Store(), Entries().at(0).Id, ReprintMode::Once);
    EXPECT_EQ(FindEntry(Store(), again)->Session, SessionOfReprints);
}

TEST_F(BatchAccounts, ARowThatIsPrintedAgainFindsItsPictureByTheNameOfItsColumn)
{
    ASSERT_TRUE(LoadFirstPage(Session, Name));
    Session.Pictures.Folder = Session.ProgramFolder;
    AddImage(Session, QStringLiteral("{photo}.png"), {100, 200, 300, 400});
    SavePage(Session);
    Station.WritePng(QStringLiteral("bea.png"), 16, 4);
    Plan = PlanOf(Target);
    BatchAccount account = Account();
    Batch batch = RowsOf({Ada});
    batch.Rows[0].Values.append(QStringLiteral("bea"));
    batch.Columns = {QStringLiteral("name"), QStringLiteral("photo")};
    account.Begin(batch);
    account.End(batch, Print(batch, Plan, Target));
    // The station itself has no folder of pictures.
    Session.Pictures = {};
    Session.Keeper = nullptr;
    Station.Printers.Operations.clear();
    AskReprint(Store(), Entries().at(0).Id, ReprintMode::Once);
    TakeStoredRecords(Session);
    EXPECT_THAT(
        Station.Printers.Only({QStringLiteral("PaintPicture")}),
        testing::ElementsAre(QStringLiteral("PaintPicture(16 x 4 pixels, 200, 100, 400, 300)")));
    EXPECT_TRUE(Session.Pictures.Folder.isEmpty());
}

TEST_F(BatchAccounts, WithoutALedgerNumbersAreTakenAllTheSame)
{
    Session.Options.Ledger = false;
    BatchAccount account = Account();
    Batch batch = RowsOf({Ada, Bea});
    account.Begin(batch);
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1002")}));
    account.End(batch, Print(batch, Plan, Target, 1));
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1001")}));
    EXPECT_TRUE(Entries().empty());
}

} // namespace vantrel::test
