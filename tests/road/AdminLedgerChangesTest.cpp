#include "AdminLedger.h"
#include <QDir>

namespace vantrel::test {

namespace {

const QString One = QStringLiteral("1");
const QString Again = QStringLiteral("--again");
const QString Json = QStringLiteral("--json");

TEST_F(AdminLedger, AReprintIsAddedOnceUnlessAskedForAgain)
{
    AddPrinted("Ada");
    EXPECT_EQ(Output("reprint", {One}), QStringLiteral("Entry 1 is printed again as entry 2.\n"));
    EXPECT_EQ(StateOf(2), LedgerState::Received);
    const QString refusal = ExpectOneLine(1, Command("reprint", {One}));
    EXPECT_TRUE(refusal.contains(QStringLiteral("as entry 2"))) << refusal.toStdString();
    EXPECT_TRUE(refusal.contains(Again)) << refusal.toStdString();
    // Of a reprint the first entry is told.
    EXPECT_EQ(ExpectOneLine(1, Command("reprint", {QStringLiteral("2")})), refusal);
    EXPECT_EQ(Output("reprint", {Again, One, Json}), QStringLiteral("{\"id\": 3}\n"));
    EXPECT_FALSE(FindEntry(Database(), 4));
}

TEST_F(AdminLedger, AReprintSaysThatTheLayoutWasChangedSince)
{
    AddPrinted("Ada");
    Database().Change(QStringLiteral("UPDATE LedgerCards SET PageHash = 'another page'"));
    EXPECT_EQ(Output("reprint", {One}),
              QStringLiteral("Entry 1 is printed again as entry 2.\nIts layout was changed since. "
                             "The card is printed as it was then.\n"));
    EXPECT_EQ(Output("reprint", {Again, One, Json}),
              QStringLiteral("{\"id\": 3, \"layout_changed\": true}\n"));
}

TEST_F(AdminLedger, AnEntryIsDeclaredVoid)
{
    AddPrinted("Ada");
    EXPECT_EQ(Output("void", {One}), QString());
    EXPECT_EQ(StateOf(1), LedgerState::Void);
}

TEST_F(AdminLedger, FinishedEntriesArePurged)
{
    AddPrinted("Ada");
    LedgerEntry waiting = PrintedEntry({QStringLiteral("Grace")});
    waiting.State = LedgerState::Received;
    Add(waiting);
    EXPECT_EQ(Output("purge", {QStringLiteral("--older-than"), QStringLiteral("100000")}),
              QStringLiteral("Entries removed: 0\n"));
    EXPECT_EQ(Output("purge", {QStringLiteral("--all")}), QStringLiteral("Entries removed: 1\n"));
    EXPECT_FALSE(FindEntry(Database(), 1));
    EXPECT_TRUE(FindEntry(Database(), 2));
}

TEST_F(AdminLedger, AnUnknownEntryGivesOneLineAndExitCodeOne)
{
    for (const char* verb : {"show", "reprint", "void"})
        EXPECT_TRUE(
            ExpectOneLine(1, Command(verb, {One})).contains(QStringLiteral("has no entry 1")));
}

TEST_F(AdminLedger, WhatIsNotUnderstoodGivesExitCodeTwoAndChangesNothing)
{
    AddPrinted("Ada");
    const QList<QStringList> lines = {
        {QStringLiteral("ledger")},
        {QStringLiteral("ledger"), Folder.path()},
        {QStringLiteral("ledger"), QStringLiteral("list")},
        Command("list", {One}),
        Command("list", {QStringLiteral("--limit")}),
        Command("list", {QStringLiteral("--limit"), QStringLiteral("-1")}),
        Command("list", {QStringLiteral("--limit=x")}),
        Command("list", {QStringLiteral("--state"), QStringLiteral("gone")}),
        Command("list", {QStringLiteral("--since"), QStringLiteral("yesterday")}),
        Command("list", {QStringLiteral("--until"), QStringLiteral("2026-02-30")}),
        Command("list", {QStringLiteral("--before"), QStringLiteral("two")}),
        Command("list", {QStringLiteral("--json=yes")}),
        Command("list", {QStringLiteral("--again")}),
        Command("show"),
        Command("show", {QStringLiteral("x")}),
        Command("show", {One, One}),
        Command("reprint", {QStringLiteral("0")}),
        Command("void", {QStringLiteral("1.5")}),
        Command("export", {One, One}),
        Command("purge"),
        Command("purge", {QStringLiteral("--all"), QStringLiteral("--older-than=1")}),
        Command("purge", {QStringLiteral("--older-than"), QStringLiteral("old")}),
    };
    for (const QStringList& line : lines)
        ExpectOneLine(2, line);
    EXPECT_EQ(StateOf(1), LedgerState::Printed);
    EXPECT_FALSE(FindEntry(Database(), 2));
}

TEST_F(AdminLedger, AFolderWithoutALedgerIsReported)
{
    const QTemporaryDir bare;
    const QList<QStringList> commands = {
        Command("list"),
        Command("show", {One}),
        Command("counts"),
        Command("reprint", {One}),
        Command("export"),
        Command("void", {One}),
        Command("purge", {QStringLiteral("--all")}),
    };
    for (QStringList command : commands) {
        command[2] = bare.filePath(QStringLiteral("none"));
        EXPECT_TRUE(
            ExpectOneLine(1, command).contains(QStringLiteral("There is no layout database")));
    }
    EXPECT_TRUE(QDir(bare.path()).isEmpty());
    MakeProgramFolder(bare.path());
    for (QStringList command : commands) {
        command[2] = bare.path();
        EXPECT_TRUE(ExpectOneLine(1, command).contains(QStringLiteral("There is no ledger in")));
    }
}

TEST_F(AdminLedger, EachVerbHasItsHelp)
{
    for (const char* verb : {"list", "show", "reprint", "void", "counts", "export", "purge"}) {
        const Outcome outcome = RunAdmin(Command(verb, {QStringLiteral("--help")}));
        EXPECT_EQ(outcome.Code, 0);
        EXPECT_TRUE(outcome.Out.startsWith(QStringLiteral("Usage: vantrel-admin ledger ") +
                                           QLatin1StringView(verb)));
    }
    EXPECT_TRUE(RunAdmin(Command("list", {QStringLiteral("--help")}))
                    .Out.contains(QStringLiteral("--before ID")));
}

} // namespace

} // namespace vantrel::test
