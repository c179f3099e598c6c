#include "station/commands/HistoryCommands.h"
#include "base/Failure.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerTables.h"
#include "station/layout/PageDescription.h"
#include "store/StoreDatabase.h"
#include "support/Layouts.h"
#include "support/LedgerFill.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

class HistoryCommands : public ::testing::Test
{
protected:
    HistoryCommands()
    {
        Station.WithDatabase();
        Session.Options.Ledger = true;
        BeginLayout(Session, QStringLiteral("Badge"));
        AddField(Session, 1);
        SavePage(Session);
        MakeLedgerTables(Store());
    }
    StoreDatabase& Store() { return Session.LayoutDb.Database(); }
    qlonglong Add(LedgerState state, bool withCard = true)
    {
        LedgerEntry entry =
            PrintedEntry({QStringLiteral("Ada")}, {QStringLiteral("1001"), QStringLiteral("1002")});
        entry.State = state;
        entry.Cards[0].State = state;
        entry.Cards[0].PageHash = DescribePage(Session.LayoutDb, QStringLiteral("Badge"), 1).Hash;
        if (!withCard)
            entry.Cards.clear();
        return AddLedgerEntry(Store(), entry);
    }
    QString Asked(qlonglong id) { return AskBeforeReprint(Session, id).Text; }
    template <typename Step>
    QString Refusal(Step&& step)
    {
        try {
            step();
        } catch (const Failure& failure) {
            return failure.Text();
        }
        return {};
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

TEST_F(HistoryCommands, AsksBeforeItPrintsAgainWhatWasPrinted)
{
    for (const LedgerState state : {LedgerState::Printed, LedgerState::Done}) {
        const QString asked = Asked(Add(state));
        EXPECT_TRUE(asked.contains(QStringLiteral("was printed."))) << asked.toStdString();
        EXPECT_TRUE(asked.contains(QStringLiteral("1 card of the layout Badge with the numbers "
                                                  "1001, 1002.")))
            << asked.toStdString();
        EXPECT_FALSE(asked.contains(QStringLiteral("changed"))) << asked.toStdString();
    }
    EXPECT_TRUE(Asked(Add(LedgerState::Doubtful)).contains(QStringLiteral("not known")));
    EXPECT_TRUE(Asked(Add(LedgerState::Void)).contains(QStringLiteral("declared void")));
}

TEST_F(HistoryCommands, AsksNothingForAnEntryThatFailed)
{
    const qlonglong id = Add(LedgerState::Failed, false);
    EXPECT_EQ(Asked(id), QString());
    EXPECT_EQ(AskBeforeReprint(Session, id).Mode, ReprintMode::Once);
    EXPECT_EQ(Asked(Add(LedgerState::Failed)), QString());
}

TEST_F(HistoryCommands, SaysThatTheLayoutWasChangedSince)
{
    const qlonglong id = Add(LedgerState::Failed);
    AddText(Session, QStringLiteral("New"));
    SavePage(Session);
    EXPECT_TRUE(Asked(id).startsWith(QStringLiteral("Its layout was changed since.")))
        << Asked(id).toStdString();
}

TEST_F(HistoryCommands, ASecondReprintIsAskedForAndThenAllowed)
{
    const qlonglong id = Add(LedgerState::Printed);
    EXPECT_EQ(ReprintFromHistory(Session, id, AskBeforeReprint(Session, id).Mode),
              QStringLiteral("Entry 1 is printed again as entry 2."));
    EXPECT_EQ(FindEntry(Store(), 2)->ReprintOf, id);
    const ReprintQuestion second = AskBeforeReprint(Session, id);
    EXPECT_TRUE(second.Text.contains(QStringLiteral("printed again before, as entry 2.")));
    EXPECT_EQ(second.Mode, ReprintMode::Again);
    EXPECT_EQ(ReprintFromHistory(Session, id, second.Mode),
              QStringLiteral("Entry 1 is printed again as entry 3."));
}

TEST_F(HistoryCommands, AReprintThatAnotherSessionPrintsSaysSo)
{
    LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
    entry.Session = 4;
    const qlonglong id = AddLedgerEntry(Store(), entry);
    EXPECT_EQ(ReprintFromHistory(Session, id, ReprintMode::Once),
              QStringLiteral("Entry 1 waits as entry 2 for session 4 to print it."));
}

TEST_F(HistoryCommands, WhatCannotBePrintedAgainIsRefusedBeforeAnythingIsAsked)
{
    LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
    entry.HasValues = false;
    const qlonglong id = AddLedgerEntry(Store(), entry);
    EXPECT_EQ(Refusal([&] { Asked(id); }),
              QStringLiteral("Entry 1 cannot be printed again: its values were not kept."));
    EXPECT_EQ(Refusal([&] { Asked(99); }), QStringLiteral("The ledger has no entry 99."));
    const qlonglong printing = Add(LedgerState::Printing);
    EXPECT_EQ(Refusal([&] { Asked(printing); }), QStringLiteral("Entry 2 is being printed."));
    const qlonglong waiting = Add(LedgerState::Received, false);
    EXPECT_EQ(Refusal([&] { Asked(waiting); }),
              QStringLiteral("Entry 3 still waits to be printed."));
}

TEST_F(HistoryCommands, TheQuestionBeforeVoidNamesWhatBecomesVoid)
{
    const qlonglong printed = Add(LedgerState::Printed);
    const QString asked = AskBeforeVoid(Session, printed);
    EXPECT_TRUE(asked.contains(QStringLiteral("entry 1"))) << asked.toStdString();
    EXPECT_TRUE(asked.contains(QStringLiteral("1001, 1002"))) << asked.toStdString();
    const qlonglong waiting = Add(LedgerState::Received, false);
    EXPECT_TRUE(AskBeforeVoid(Session, waiting).contains(QStringLiteral("then never is")));
    EXPECT_EQ(VoidFromHistory(Session, printed), QStringLiteral("Entry 1 is void."));
    EXPECT_EQ(FindEntry(Store(), printed)->State, LedgerState::Void);
    const qlonglong printing = Add(LedgerState::Printing);
    EXPECT_EQ(Refusal([&] { VoidFromHistory(Session, printing); }),
              QStringLiteral("Entry 3 is being printed."));
}

} // namespace
} // namespace vantrel::test
