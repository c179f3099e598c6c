#pragma once

#include "ledger/LedgerRows.h"
#include <optional>

namespace vantrel {
class StoreDatabase;
}

namespace vantrel::console {

/// How much of an entry is told.
struct BriefTerms
{
    qsizetype Values = 20;
    /// Characters of each text.
    qsizetype Text = 200;
    std::size_t Cards = 20;
    /// Of each card.
    qsizetype Numbers = 20;
};

/// Of an entry that is looked at by itself.
inline constexpr BriefTerms BriefButReadable{
    .Values = 500, .Text = 1000, .Cards = 50, .Numbers = 100};

/// An entry with the beginning of its values and of its cards only: a record may be of any length,
/// and a list or a live event shows little of it.
LedgerEntry Brief(LedgerEntry entry, const BriefTerms& most = {});

/// An entry as a JSON object, with `reprinted_as`: the entry by which it was printed again.
QByteArray JsonWithReprint(const LedgerEntry& entry, std::optional<qlonglong> reprint);

/// A brief entry in this way. Its reprint is the first one that did not fail. Fails like
/// `StoreDatabase`.
QByteArray BriefEntryJson(StoreDatabase& database, LedgerEntry entry);

} // namespace vantrel::console
