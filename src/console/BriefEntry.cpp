#include "console/BriefEntry.h"
#include <algorithm>

namespace vantrel::console {

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

} // namespace vantrel::console
