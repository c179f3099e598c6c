#pragma once

#include "ledger/LedgerReading.h"
#include "ledger/LedgerTables.h"
#include "road/AdminRun.h"
#include "samples/FreshInstall.h"
#include "store/Connection.h"
#include "support/LedgerFill.h"
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

/// A program folder with a ledger, and the commands on it.
class AdminLedger : public ::testing::Test
{
protected:
    AdminLedger()
    {
        MakeProgramFolder(Folder.path());
        Store.Open(LayoutDatabasePath(Folder.path()));
        MakeLedgerTables(Database());
    }

    StoreDatabase& Database() { return Store.Database(); }
    qlonglong Add(const LedgerEntry& entry) { return AddLedgerEntry(Database(), entry); }
    qlonglong AddPrinted(const char* value)
    {
        return Add(PrintedEntry({QString::fromUtf8(value)}));
    }
    LedgerState StateOf(qlonglong id)
    {
        const auto entry = FindEntry(Database(), id);
        EXPECT_TRUE(entry) << id;
        return entry ? entry->State : LedgerState::Received;
    }
    /// The words of a command on the ledger of this folder.
    QStringList Command(const char* verb, const QStringList& further = {}) const
    {
        return QStringList{QStringLiteral("ledger"), QString(QLatin1StringView(verb)),
                           Folder.path()} +
               further;
    }
    /// Runs a command that must succeed. @return what it wrote
    QString Output(const char* verb, const QStringList& further = {}) const
    {
        const Outcome outcome = RunAdmin(Command(verb, further));
        EXPECT_EQ(outcome.Code, 0);
        EXPECT_EQ(outcome.Errors, QString());
        return outcome.Out;
    }
    QStringList Lines(const char* verb, const QStringList& further = {}) const
    {
        return Output(verb, further).split(u'\n', Qt::SkipEmptyParts);
    }

    QTemporaryDir Folder;
    Connection Store;
};

} // namespace vantrel::test
