#include "LedgerTest.h"
#include "support/Memory.h"

namespace vantrel::test {

namespace {

constexpr qint64 Hour = 3600000;

TEST_F(LedgerTest, EntriesAreReadNewestFirst)
{
    const auto first = AddPrinted("Ada");
    const auto second = AddPrinted("Grace");
    EXPECT_EQ(Found({}), Numbers({second, first}));
}

TEST_F(LedgerTest, MoreEntriesThanAreReadAtOnceAreReadInTheirOrder)
{
    constexpr qlonglong count = 1300;
    Database().Execute(QStringLiteral("BEGIN"));
    for (qlonglong i = 0; i < count; ++i)
        AddPrinted("Ada");
    Database().Execute(QStringLiteral("COMMIT"));
    Numbers expected;
    for (qlonglong id = count; id > 0; --id)
        expected.push_back(id);
    EXPECT_EQ(Found({}), expected);
    LedgerFilter filter;
    filter.Limit = 1100;
    expected.resize(1100);
    EXPECT_EQ(Found(filter), expected);
}

TEST_F(LedgerTest, AnEntryIsReadAsItWasWritten)
{
    LedgerEntry written =
        PrintedEntry({QStringLiteral("Zo\u00EB"), QString(), QStringLiteral("\"")});
    written.State = LedgerState::Failed;
    written.Reason = QStringLiteral("No printer");
    written.Session = 3;
    written.Raw = QByteArray("<Zo\xEB+\0>", 7);
    written.ReprintOf = 1;
    LedgerCard job = CardIn(LedgerState::Failed, {QStringLiteral("1001"), QStringLiteral("7")});
    job.Page = 2;
    job.Copy = 4;
    job.Job = 99;
    job.File.clear();
    job.PageHash = QStringLiteral("abc");
    job.Reason = QStringLiteral("canceled");
    written.Cards.push_back(job);
    const LedgerEntry entry = Entry(Add(written));
    EXPECT_EQ(entry.State, LedgerState::Failed);
    EXPECT_EQ(entry.Reason, written.Reason);
    EXPECT_EQ(entry.Received, written.Received);
    EXPECT_EQ(entry.Session, 3);
    EXPECT_EQ(entry.Source, written.Source);
    EXPECT_EQ(entry.Layout, written.Layout);
    EXPECT_EQ(entry.Raw, written.Raw);
    EXPECT_EQ(entry.Framing, written.Framing);
    EXPECT_EQ(entry.Values, written.Values);
    EXPECT_TRUE(entry.HasValues);
    EXPECT_EQ(entry.Length, 7);
    EXPECT_EQ(entry.ValueCount, 3);
    EXPECT_EQ(entry.ReprintOf, 1);
    ASSERT_EQ(entry.Cards.size(), 2U);
    const LedgerCard& card = entry.Cards.at(1);
    EXPECT_EQ(card.Layout, job.Layout);
    EXPECT_EQ(card.Page, 2);
    EXPECT_EQ(card.Copy, 4);
    EXPECT_EQ(card.Printer, job.Printer);
    EXPECT_EQ(card.Numbers, job.Numbers);
    EXPECT_EQ(card.PageHash, job.PageHash);
    EXPECT_EQ(card.Job, 99);
    EXPECT_EQ(card.File, QString());
    EXPECT_EQ(card.State, LedgerState::Failed);
    EXPECT_EQ(card.Reason, job.Reason);
    EXPECT_EQ(card.Changed, job.Changed);
    EXPECT_FALSE(entry.Cards.at(0).Job);
}

TEST_F(LedgerTest, AnUnknownNumberHasNoEntry)
{
    EXPECT_FALSE(FindEntry(Database(), 1));
}

TEST_F(LedgerTest, AnEntryWhoseValuesWereNotKeptSaysSo)
{
    LedgerEntry written = PrintedEntry({});
    written.HasValues = false;
    written.Hash = QStringLiteral("00ff");
    const LedgerEntry entry = Entry(Add(written));
    EXPECT_FALSE(entry.HasValues);
    EXPECT_EQ(entry.Hash, QStringLiteral("00ff"));
    EXPECT_TRUE(entry.Raw.isEmpty());
}

TEST_F(LedgerTest, AListOfEntriesHasValuesAndCardsButNoBytes)
{
    Add(PrintedEntry({QStringLiteral("Ada")}, {QStringLiteral("1001")}));
    int taken = 0;
    ReadEntries(Database(), {}, [&](const LedgerEntry& entry) {
        ++taken;
        EXPECT_EQ(entry.Values, QStringList(QStringLiteral("Ada")));
        ASSERT_EQ(entry.Cards.size(), 1U);
        EXPECT_EQ(entry.Cards.at(0).Numbers, QStringList(QStringLiteral("1001")));
        EXPECT_TRUE(entry.Raw.isEmpty());
    });
    EXPECT_EQ(taken, 1);
}

TEST_F(LedgerTest, ATextIsFoundAnywhereWhateverItsCase)
{
    const auto ada = Add(PrintedEntry({QStringLiteral("Ada Lovelace")}, {QStringLiteral("1001")}));
    const auto zoe = AddPrinted("ZO\u00CB M\u00FCller");
    EXPECT_EQ(FoundByText("LOVEL"), Numbers({ada}));
    EXPECT_EQ(FoundByText("zo\u00EB"), Numbers({zoe}));
    EXPECT_EQ(FoundByText("M\u00DCLLER"), Numbers({zoe}));
    EXPECT_EQ(FoundByText("badge"), Numbers({zoe, ada}));
    EXPECT_EQ(FoundByText("192.168.7.10"), Numbers({zoe, ada}));
    EXPECT_EQ(FoundByText("1001"), Numbers({ada}));
    EXPECT_EQ(FoundByText("grace"), Numbers());
}

TEST_F(LedgerTest, WildcardsInASearchedTextAreOrdinaryCharacters)
{
    const auto percent = AddPrinted("50% off");
    const auto underscore = AddPrinted("a_b");
    const auto backslash = AddPrinted("a\\b");
    AddPrinted("axb, 500 off");
    EXPECT_EQ(FoundByText("50%"), Numbers({percent}));
    EXPECT_EQ(FoundByText("a_b"), Numbers({underscore}));
    EXPECT_EQ(FoundByText("a\\b"), Numbers({backslash}));
}

TEST_F(LedgerTest, ATextThatIsTooLongIsRefused)
{
    LedgerFilter filter;
    filter.Text = QString(LongestSearchText, u'_');
    EXPECT_EQ(Found(filter), Numbers());
    filter.Text += u'_';
    EXPECT_EQ(FailureOf([&] { Found(filter); }), FailureNumber::InvalidCall);
}

TEST_F(LedgerTest, EntriesAreFoundByTheirState)
{
    AddPrinted("Ada");
    const auto failed = AddInState(LedgerState::Failed);
    LedgerFilter filter;
    filter.State = LedgerState::Failed;
    EXPECT_EQ(Found(filter), Numbers({failed}));
    filter.Text = QStringLiteral("ada");
    EXPECT_EQ(Found(filter), Numbers({failed}));
    filter.Text = QStringLiteral("grace");
    EXPECT_EQ(Found(filter), Numbers());
}

TEST_F(LedgerTest, TimesHoldTheFirstMillisecondAndNotTheLast)
{
    Numbers ids;
    for (int hour = 0; hour < 4; ++hour) {
        LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
        entry.Received = hour * Hour;
        ids.push_back(Add(entry));
    }
    LedgerFilter filter;
    filter.Since = Hour;
    EXPECT_EQ(Found(filter), Numbers({ids[3], ids[2], ids[1]}));
    filter.Until = 3 * Hour;
    EXPECT_EQ(Found(filter), Numbers({ids[2], ids[1]}));
    filter.Since.reset();
    EXPECT_EQ(Found(filter), Numbers({ids[2], ids[1], ids[0]}));
    filter.Until = 0;
    EXPECT_EQ(Found(filter), Numbers());
}

TEST_F(LedgerTest, AnArrivalBeforeTheClockWasSetBackIsFoundByItsTime)
{
    Numbers ids;
    for (const int hour : {5, 1, 6, 2}) {
        LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
        entry.Received = hour * Hour;
        ids.push_back(Add(entry));
    }
    LedgerFilter filter;
    filter.Since = 5 * Hour;
    EXPECT_EQ(Found(filter), Numbers({ids[2], ids[0]}));
}

TEST_F(LedgerTest, TheNextPageGoesOnBelowANumber)
{
    Numbers ids;
    for (int i = 0; i < 5; ++i)
        ids.push_back(AddPrinted("Ada"));
    LedgerFilter filter;
    filter.Limit = 2;
    EXPECT_EQ(Found(filter), Numbers({ids[4], ids[3]}));
    filter.Before = ids[3];
    EXPECT_EQ(Found(filter), Numbers({ids[2], ids[1]}));
    filter.Before = ids[1];
    EXPECT_EQ(Found(filter), Numbers({ids[0]}));
    filter.Before = ids[0];
    EXPECT_EQ(Found(filter), Numbers());
}

TEST_F(LedgerTest, AWriterIsNotHeldUpWhileEntriesAreTaken)
{
    AddPrinted("Ada");
    AddPrinted("Grace");
    const auto other = OpenStoreDatabase(Path);
    int taken = 0;
    ReadEntries(Database(), {}, [&](const LedgerEntry&) {
        ++taken;
        AddLedgerEntry(*other, PrintedEntry({QStringLiteral("New")}));
        // A reader would keep the log from being emptied.
        if (!StoresAreOnServer()) {
            EXPECT_EQ(other->Execute(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")).toInt(), 0);
        }
    });
    EXPECT_EQ(taken, 2);
}

TEST_F(LedgerTest, AnEntryThatIsRemovedMeanwhileIsPassedOver)
{
    const auto first = AddPrinted("Ada");
    const auto second = AddPrinted("Grace");
    Numbers taken;
    ReadEntries(Database(), {}, [&](const LedgerEntry& entry) {
        taken.push_back(entry.Id);
        Database().Change(QStringLiteral("DELETE FROM LedgerEntries WHERE ID = ?"), {first});
    });
    EXPECT_EQ(taken, Numbers({second}));
}

TEST_F(LedgerTest, MemoryHoldsOneEntryAtATime)
{
    LedgerEntry entry = PrintedEntry({QString(MiB, u'x')});
    Database().Execute(QStringLiteral("BEGIN"));
    for (int i = 0; i < 64; ++i)
        Add(entry);
    Database().Execute(QStringLiteral("COMMIT"));
    const PeakMemory memory;
    qsizetype characters = 0;
    ReadEntries(Database(), {},
                [&](const LedgerEntry& read) { characters += read.Values.at(0).size(); });
    EXPECT_EQ(characters, 64 * MiB);
    EXPECT_LT(memory.Grown(), 32 * MiB);
}

TEST_F(LedgerTest, EntriesAreCounted)
{
    EXPECT_EQ(CountEntries(Database(), {}), 0);
    AddPrinted("Ada");
    AddInState(LedgerState::Failed);
    LedgerEntry later = PrintedEntry({QStringLiteral("Grace")});
    later.Received += Hour;
    Add(later);
    EXPECT_EQ(CountEntries(Database(), {}), 3);
    LedgerFilter filter;
    filter.Limit = 1;
    EXPECT_EQ(CountEntries(Database(), filter), 3);
    filter.Before = 3;
    EXPECT_EQ(CountEntries(Database(), filter), 2);
    filter.Before = 1;
    EXPECT_EQ(CountEntries(Database(), filter), 0);
    filter = {};
    filter.State = LedgerState::Failed;
    EXPECT_EQ(CountEntries(Database(), filter), 1);
    filter = {};
    filter.Text = QStringLiteral("ada");
    EXPECT_EQ(CountEntries(Database(), filter), 2);
    filter = {};
    filter.Until = later.Received;
    EXPECT_EQ(CountEntries(Database(), filter), 2);
    filter.State = LedgerState::Printed;
    EXPECT_EQ(CountEntries(Database(), filter), 1);
}

} // namespace

} // namespace vantrel::test
