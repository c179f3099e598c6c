#include "ledger/LedgerTending.h"
#include "LedgerTest.h"
#include <QDateTime>

namespace vantrel::test {

namespace {

class LedgerTended : public LedgerTest
{
protected:
    qlonglong Reprint(qlonglong id, ReprintMode mode = ReprintMode::Once)
    {
        return AskReprint(Database(), id, mode);
    }
    QString ReprintRefusal(qlonglong id, ReprintMode mode = ReprintMode::Once)
    {
        const qlonglong before = RowsOf("LedgerEntries");
        QString text = FailureTextOf([&] { Reprint(id, mode); });
        EXPECT_EQ(RowsOf("LedgerEntries"), before);
        EXPECT_FALSE(Store.InTransaction());
        return text;
    }
    void SetState(qlonglong id, LedgerState state)
    {
        Database().Change(QStringLiteral("UPDATE LedgerEntries SET State = ? WHERE ID = ?"),
                          {NameOf(state), id});
    }
};

TEST_F(LedgerTended, AReprintIsAnEntryOfItsOwnThatNamesTheFirst)
{
    LedgerEntry written =
        PrintedEntry({QStringLiteral("Ada"), QStringLiteral("b")}, {QStringLiteral("1001")});
    written.Session = 2;
    written.Reason = QStringLiteral("none");
    const auto first = Add(written);
    const auto before = QDateTime::currentMSecsSinceEpoch();
    const LedgerEntry entry = Entry(Reprint(first));
    EXPECT_EQ(entry.Id, first + 1);
    EXPECT_EQ(entry.State, LedgerState::Received);
    EXPECT_EQ(entry.ReprintOf, first);
    EXPECT_GE(entry.Received, before);
    EXPECT_EQ(entry.Session, 2);
    EXPECT_EQ(entry.Source, written.Source);
    EXPECT_EQ(entry.Layout, written.Layout);
    EXPECT_EQ(entry.Reason, QString());
    EXPECT_EQ(entry.Values, written.Values);
    EXPECT_EQ(entry.Raw, written.Raw);
    EXPECT_EQ(entry.Framing, written.Framing);
    EXPECT_EQ(entry.Length, written.Raw.size());
    EXPECT_EQ(entry.ValueCount, 2);
    EXPECT_TRUE(entry.Cards.empty());
    EXPECT_EQ(Entry(first).State, LedgerState::Printed);
    EXPECT_EQ(FoundByText("1001"), Numbers({entry.Id, first}));
}

TEST_F(LedgerTended, AReprintOfAReprintNamesTheFirst)
{
    const auto first = AddPrinted("Ada");
    const auto second = Reprint(first);
    SetState(second, LedgerState::Printed);
    EXPECT_EQ(Entry(Reprint(second, ReprintMode::Again)).ReprintOf, first);
}

TEST_F(LedgerTended, AReprintWhoseFirstWasRemovedCountsAsTheFirst)
{
    LedgerEntry written = PrintedEntry({QStringLiteral("Ada")});
    written.Id = 9;
    written.ReprintOf = 4;
    EXPECT_EQ(Entry(Reprint(Add(written))).ReprintOf, 9);
}

TEST_F(LedgerTended, ASecondReprintWantsToBeAskedForAgain)
{
    const auto first = AddPrinted("Ada");
    EXPECT_FALSE(FindReprint(Database(), first));
    const auto second = Reprint(first);
    EXPECT_EQ(FindReprint(Database(), first), second);
    EXPECT_EQ(ReprintRefusal(first),
              QStringLiteral("Entry 1 was printed again already, as entry 2."));
    SetState(second, LedgerState::Printed);
    EXPECT_EQ(ReprintRefusal(second),
              QStringLiteral("Entry 1 was printed again already, as entry 2."));
    EXPECT_EQ(Reprint(first, ReprintMode::Again), 3);
}

TEST_F(LedgerTended, AReprintThatFailedDoesNotCount)
{
    const auto first = AddPrinted("Ada");
    SetState(Reprint(first), LedgerState::Failed);
    EXPECT_FALSE(FindReprint(Database(), first));
    EXPECT_EQ(Reprint(first), 3);
}

TEST_F(LedgerTended, WhatIsFinishedCanBePrintedAgain)
{
    for (const LedgerState state : {LedgerState::Printed, LedgerState::Done, LedgerState::Failed,
                                    LedgerState::Doubtful, LedgerState::Void})
        EXPECT_EQ(Entry(Reprint(AddInState(state))).State, LedgerState::Received);
}

TEST_F(LedgerTended, WhatCannotBePrintedAgainIsRefusedInOneLine)
{
    EXPECT_EQ(ReprintRefusal(5), QStringLiteral("The ledger has no entry 5."));
    const auto waiting = AddInState(LedgerState::Received);
    const auto printing = AddInState(LedgerState::Printing);
    LedgerEntry bare = PrintedEntry({});
    bare.HasValues = false;
    const auto without = Add(bare);
    for (const ReprintMode mode : {ReprintMode::Once, ReprintMode::Again}) {
        EXPECT_EQ(ReprintRefusal(waiting, mode),
                  QStringLiteral("Entry 1 still waits to be printed."));
        EXPECT_EQ(ReprintRefusal(printing, mode), QStringLiteral("Entry 2 is being printed."));
        EXPECT_EQ(ReprintRefusal(without, mode),
                  QStringLiteral("Entry 3 cannot be printed again: its values were not kept."));
    }
}

TEST_F(LedgerTended, TwoWhoAskAtOnceGetOneReprint)
{
    const auto first = AddPrinted("Ada");
    const auto other = OpenStoreDatabase(Path);
    EXPECT_NO_THROW(AskReprint(*other, first, ReprintMode::Once));
    EXPECT_FALSE(ReprintRefusal(first).isEmpty());
}

TEST_F(LedgerTended, AVoidEntryHasOnlyVoidCards)
{
    LedgerEntry written = PrintedEntry({QStringLiteral("Ada")});
    written.Cards.push_back(CardIn(LedgerState::Failed));
    const auto id = Add(written);
    const auto other = AddPrinted("Grace");
    VoidEntry(Database(), id);
    const LedgerEntry entry = Entry(id);
    EXPECT_EQ(entry.State, LedgerState::Void);
    ASSERT_EQ(entry.Cards.size(), 2U);
    for (const LedgerCard& card : entry.Cards) {
        EXPECT_EQ(card.State, LedgerState::Void);
        EXPECT_GT(card.Changed, written.Cards.at(0).Changed);
    }
    EXPECT_EQ(Entry(other).State, LedgerState::Printed);
    EXPECT_EQ(Entry(other).Cards.at(0).State, LedgerState::Printed);
}

TEST_F(LedgerTended, AWaitingEntryCanBeMadeVoidAndOneBeingPrintedCannot)
{
    const auto waiting = AddInState(LedgerState::Received);
    VoidEntry(Database(), waiting);
    EXPECT_EQ(Entry(waiting).State, LedgerState::Void);
    const auto printing = AddInState(LedgerState::Printing);
    EXPECT_EQ(FailureTextOf([&] { VoidEntry(Database(), printing); }),
              QStringLiteral("Entry 2 is being printed."));
    EXPECT_EQ(FailureTextOf([&] { VoidEntry(Database(), 5); }),
              QStringLiteral("The ledger has no entry 5."));
    EXPECT_FALSE(Store.InTransaction());
    EXPECT_EQ(Entry(printing).State, LedgerState::Printing);
}

} // namespace

} // namespace vantrel::test
