#pragma once

#include "store/StoreTable.h"
#include <QString>

namespace vantrel {

class StoreDatabase;

/// @file The tables of the ledger in the layout database. They stand beside the tables of the
/// layouts, so a station that does not know them still opens the file.
///
/// `LedgerEntries` has one row for each `LedgerEntry`; its bytes and values, where they are kept,
/// stand in `LedgerRecords`. `LedgerCards` has one row for each `LedgerCard`, and
/// `LedgerPages` one for each different page that was printed, as JSON with its SHA-256 as the key;
/// it holds no value of a record and no number. `LedgerStations` has one row for each
/// `LedgerStation`. `LedgerPools` names the pool of each entry that was left to one. Times are
/// milliseconds since 1970, UTC. Lists are JSON arrays of texts. `SearchText` is what an entry is
/// found by, without regard to case.

std::span<const StoreTable> LedgerTables();
/// Whether the database has a ledger.
bool HasLedger(StoreDatabase& database);
/// Whether its entries may be left to pools; a ledger that no station has opened since pools came
/// has none.
bool HasPools(StoreDatabase& database);
/// Makes the tables that are missing. Fails like `StoreDatabase`.
void MakeLedgerTables(StoreDatabase& database);

/// Writes a list as it is stored, a JSON array of texts, text by text.
class ListWriter
{
public:
    void Add(QStringView text);
    /// The whole list.
    QString Text() const;

private:
    QString m_text = QStringLiteral("[");
};

/// A list as it is stored: a JSON array of texts.
QString ListText(const QStringList& list);
/// The list of a stored text; empty for a text that is none.
QStringList ListOf(const QString& text);

} // namespace vantrel
