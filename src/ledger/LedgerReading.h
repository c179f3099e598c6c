#pragma once

#include "ledger/LedgerRows.h"
#include <functional>
#include <limits>
#include <optional>
#include <vector>

namespace vantrel {

class StoreDatabase;

/// Which entries are read. Without any of these it is all of them.
struct LedgerFilter
{
    std::optional<LedgerState> State;
    /// A text that is found anywhere in source, layout, values and numbers, whatever its case.
    QString Text;
    /// Times of arrival, in milliseconds since 1970, UTC: at or after `Since` and before `Until`.
    std::optional<qint64> Since;
    std::optional<qint64> Until;
    /// Only entries with a lower number, for the next page of a list.
    std::optional<qlonglong> Before;
    /// Only entries with this number or a higher one.
    std::optional<qlonglong> From = {};
    /// The number of entries that are read; 0 for all.
    qlonglong Limit = 0;
};

/// The longest text that can be searched for, in characters.
inline constexpr qsizetype LongestSearchText = 8192;

/// Reads the entries of a filter, newest first, with their values and cards but without their bytes
/// and framing, and hands over one after the other. No lock is held while `take` runs, and one
/// entry is in memory at a time. Entries that arrive meanwhile are not read. Fails with
/// `InvalidCall` if the text is too long, otherwise like `StoreDatabase`.
void ReadEntries(StoreDatabase& database, const LedgerFilter& filter,
                 const std::function<void(const LedgerEntry&)>& take);

/// The numbers of the entries of a filter, newest first. Fails like `ReadEntries`.
std::vector<qlonglong> EntryNumbers(StoreDatabase& database, const LedgerFilter& filter);

/// One entry with its values and cards, and with its bytes and framing if they are asked for;
/// nothing if there is no entry of that number. Fails like `StoreDatabase`.
enum class LedgerBytes { Without, With };
std::optional<LedgerEntry> FindEntry(StoreDatabase& database, qlonglong id,
                                     LedgerBytes bytes = LedgerBytes::With);
/// The same, but fails with `InvalidCall` and one plain line if there is no entry of that number.
LedgerEntry EntryNumbered(StoreDatabase& database, qlonglong id,
                          LedgerBytes bytes = LedgerBytes::With);

/// Numbers of entries; both ends belong to it, and it is empty if they are the wrong way round.
struct NumberRange
{
    qlonglong First = 0;
    qlonglong Last = std::numeric_limits<qlonglong>::max();
};

/// The numbers between which all entries of a filter are, found without looking at the entries.
/// Fails like `StoreDatabase`.
NumberRange EntryRange(StoreDatabase& database, const LedgerFilter& filter);

/// How many entries a filter finds, whatever its limit. Without state, text and times it is taken
/// from the first and last number, at once and without counting, so entries that were removed in
/// between count too. Fails like `ReadEntries`.
qlonglong CountEntries(StoreDatabase& database, const LedgerFilter& filter);

} // namespace vantrel
