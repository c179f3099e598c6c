#pragma once

#include "ledger/LedgerReading.h"
#include "ledger/LedgerTables.h"
#include "store/StoreTest.h"
#include "support/FailureOf.h"
#include "support/LedgerFill.h"

namespace vantrel::test {

/// A fresh layout database with a ledger, open.
class LedgerTest : public StoreTest
{
protected:
    LedgerTest() { MakeLedgerTables(Database()); }

    StoreDatabase& Database() { return Store.Database(); }
    qlonglong Add(const LedgerEntry& entry) { return AddLedgerEntry(Database(), entry); }
    qlonglong AddPrinted(const char* value)
    {
        return Add(PrintedEntry({QString::fromUtf8(value)}));
    }
    qlonglong AddInState(LedgerState state)
    {
        LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
        entry.State = state;
        if (state == LedgerState::Received)
            entry.Cards.clear();
        else
            entry.Cards = {CardIn(state)};
        return Add(entry);
    }
    /// The entry, which must exist.
    LedgerEntry Entry(qlonglong id)
    {
        const auto entry = FindEntry(Database(), id);
        EXPECT_TRUE(entry) << id;
        return entry.value_or(LedgerEntry());
    }
    qlonglong RowsOf(const char* table)
    {
        return Database()
            .Execute(QStringLiteral("SELECT COUNT(*) FROM ") + QLatin1StringView(table))
            .toLongLong();
    }
    using Numbers = std::vector<qlonglong>;
    Numbers Found(const LedgerFilter& filter) { return EntryNumbers(Database(), filter); }
    Numbers FoundByText(const char* text)
    {
        return Found(
            {.State = {}, .Text = QString::fromUtf8(text), .Since = {}, .Until = {}, .Before = {}});
    }
};

} // namespace vantrel::test
