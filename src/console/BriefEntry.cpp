#include "console/BriefEntry.h"
#include <algorithm>

namespace vantrel::console {

namespace {
constexpr qsizetype MostValues = 20;
constexpr qsizetype LongestText = 200;
constexpr std::size_t MostCards = 20;
constexpr qsizetype MostNumbers = 20;
} // namespace

LedgerEntry Brief(LedgerEntry entry)
{
    entry.Values = entry.Values.first(std::min(entry.Values.size(), MostValues));
    for (QString& value : entry.Values)
        value.truncate(LongestText);
    entry.Reason.truncate(LongestText);
    if (entry.Cards.size() > MostCards)
        entry.Cards.resize(MostCards);
    for (LedgerCard& card : entry.Cards)
        card.Numbers = card.Numbers.first(std::min(card.Numbers.size(), MostNumbers));
    return entry;
}

} // namespace vantrel::console
