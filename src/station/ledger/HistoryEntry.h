#pragma once

#include "base/InputText.h"
#include "ledger/LedgerRows.h"
#include "ports/RecordParts.h"

namespace vantrel {

class StoreDatabase;

/// @file What the history shows of an entry. A record may be millions of characters long, and only
/// the beginning of it is read out to a window.

/// An entry as it stands in the list.
struct HistoryRow
{
    qlonglong Id = 0;
    LedgerState State = LedgerState::Received;
    qint64 Received = 0;
    QString Source;
    QString Layout;
    /// The values with commas between, cut off.
    QString Values;
    QString Numbers;
    QString Reason;
    /// The first entry of a card that is printed again.
    std::optional<qlonglong> ReprintOf;

    friend bool operator==(const HistoryRow&, const HistoryRow&) = default;
};

HistoryRow RowOf(const LedgerEntry& entry);

/// A card of an entry with the description of its page; empty if that was not kept.
struct HistoryCard
{
    LedgerCard Card;
    QString Page;
};

/// One entry in full.
struct HistoryEntry
{
    /// Without its bytes, and with the beginning of its values.
    LedgerEntry Entry;
    /// The beginning of the record as it came.
    std::vector<RecordPiece> Pieces;
    /// Bytes that the pieces hold.
    qsizetype BytesTold = 0;
    /// The cards, at most `MostCardsTold`.
    std::vector<HistoryCard> Cards;
};

inline constexpr qsizetype MostCharactersTold = 16384;
inline constexpr qsizetype MostValuesTold = 500;
inline constexpr std::size_t MostCardsTold = 50;

/// Reads an entry from the ledger; nothing if it is gone. Fails like `StoreDatabase`.
/// @param encoding  how the station reads what hosts send
std::optional<HistoryEntry> ReadHistoryEntry(StoreDatabase& database, qlonglong id,
                                             InputEncoding encoding);

} // namespace vantrel
