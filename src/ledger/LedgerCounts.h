#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

namespace vantrel {

class StoreDatabase;

/// What became of the cards of one layout on one day. A card is one page of one copy.
struct LedgerCount
{
    /// The day on which the record arrived, or was to be printed again, by the machine's own time.
    QDate Day;
    QString Layout;
    /// Cards of records that were handed over: in the state `Printed` or `Done`.
    qlonglong Issued = 0;
    qlonglong Failed = 0;
    qlonglong Doubtful = 0;
    qlonglong Void = 0;
    /// Cards of reprints that were handed over. They do not count as issued.
    qlonglong Reprinted = 0;
    /// The numbers of failed and void cards that are on no card that was handed over, neither of
    /// the record nor of one of its reprints. Each stands once, on the day of its first card.
    QStringList VoidNumbers;
};

/// Counts the cards of all entries that arrived at or after `since` and before `until`
/// (milliseconds since 1970, UTC; nothing for no bound), by day and layout in this order. Records
/// without a card, such as those for which no layout was open, are not counted. Calls `take` for
/// each row. Fails like `StoreDatabase`.
void CountCards(StoreDatabase& database, std::optional<qint64> since, std::optional<qint64> until,
                const std::function<void(const LedgerCount&)>& take);

} // namespace vantrel
