#include "console/BriefEntry.h"
#include "ledger/LedgerJson.h"
#include "store/StoreDatabase.h"
#include <algorithm>
#include <optional>

namespace vantrel::console {

namespace {

/// The first reprint that did not fail of an entry or, where this is a reprint, of the first one.
/// Found by an index alone, since lists ask it for each of their entries.
std::optional<qlonglong> ReprintOf(StoreDatabase& database, const LedgerEntry& entry)
{
    std::optional<qlonglong> reprint;
    database.Select(QStringLiteral("SELECT MIN(ID) FROM LedgerEntries "
                                   "WHERE ReprintOf = ? AND State <> ?"),
                    {entry.ReprintOf.value_or(entry.Id), NameOf(LedgerState::Failed)},
                    [&](const StoreRow& row) {
                        if (!row.Value(0).isNull())
                            reprint = row.Value(0).toLongLong();
                    });
    return reprint;
}

} // namespace

LedgerEntry Brief(LedgerEntry entry, const BriefTerms& most)
{
    entry.Values = entry.Values.first(std::min(entry.Values.size(), most.Values));
    for (QString& value : entry.Values)
        value.truncate(most.Text);
    entry.Reason.truncate(most.Text);
    if (entry.Cards.size() > most.Cards)
        entry.Cards.resize(most.Cards);
    for (LedgerCard& card : entry.Cards) {
        card.Numbers = card.Numbers.first(std::min(card.Numbers.size(), most.Numbers));
        card.Reason.truncate(most.Text);
    }
    return entry;
}

QByteArray JsonWithReprint(const LedgerEntry& entry, std::optional<qlonglong> reprint)
{
    QByteArray json = LedgerEntryJson(entry);
    json.chop(1);
    return json + ", \"reprinted_as\": " +
           (reprint ? QByteArray::number(*reprint) : QByteArrayLiteral("null")) + '}';
}

QByteArray BriefEntryJson(StoreDatabase& database, LedgerEntry entry)
{
    const auto reprint = ReprintOf(database, entry);
    return JsonWithReprint(Brief(std::move(entry)), reprint);
}

} // namespace vantrel::console
