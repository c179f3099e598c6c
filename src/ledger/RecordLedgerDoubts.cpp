#include "ledger/LedgerReading.h"
#include "ledger/RecordLedger.h"
#include "store/StoreDatabase.h"
#include <QDateTime>

// Rows of which it is unknown whether they were committed, because the server was lost meanwhile.

namespace vantrel {

namespace {

/// What was written while the server was lost is written anew, with other numbers.
const QString VoidDoubtfulEntry = QStringLiteral(
    "UPDATE LedgerEntries SET State = 'void', Reason = 'The server was lost while it was written, "
    "and it was written again.' WHERE ID = ?");
const QString VoidDoubtfulCard = QStringLiteral(
    "UPDATE LedgerCards SET State = 'void', Changed = ?, Reason = 'The server was lost before it "
    "was printed.' WHERE ID = ?");
const QString LetEntryWait = QStringLiteral(
    "UPDATE LedgerEntries SET State = 'received' WHERE ID = ? AND State = 'printing'");

} // namespace

void RecordLedger::NoteDoubts()
{
    using Of = Doubt::Of;
    for (const RecordRunPtr& run : m_runs) {
        if (run->m_entryRow.Fresh && !run->Entry.Pool.isEmpty())
            m_doubts.push_back({Of::PoolEntry, run->Entry.Id, run});
        else if (run->m_entryRow.Fresh)
            m_doubts.push_back({Of::NewEntry, run->Entry.Id});
        else if (run->m_wasInLedger)
            m_doubts.push_back({Of::WaitingEntry, run->Entry.Id});
        for (std::size_t i = 0; i < run->m_cardRows.size(); ++i)
            if (run->m_cardRows[i].Fresh)
                m_doubts.push_back({Of::NewCard, run->Entry.Cards[i].Id});
    }
}

void RecordLedger::EndDoubts(StoreDatabase& database)
{
    for (const Doubt& doubt : m_doubts) {
        switch (doubt.Row) {
        case Doubt::Of::NewEntry:
            database.Change(VoidDoubtfulEntry, {doubt.Id});
            break;
        case Doubt::Of::NewCard:
            database.Change(VoidDoubtfulCard, {QDateTime::currentMSecsSinceEpoch(), doubt.Id});
            break;
        case Doubt::Of::WaitingEntry:
            database.Change(LetEntryWait, {doubt.Id});
            break;
        case Doubt::Of::PoolEntry:
            // Another station may have begun its card.
            if (FindEntry(database, doubt.Id, LedgerBytes::Without)) {
                doubt.Run->Entry.Id = doubt.Id;
                doubt.Run->m_entryRow = {.Stored = true, .Dirty = false};
            }
            break;
        }
    }
}

} // namespace vantrel
