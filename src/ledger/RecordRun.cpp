#include "ledger/RecordRun.h"
#include <algorithm>

namespace vantrel {

namespace {

/// Characters of a reason in an answer; a name in it may be long.
constexpr qsizetype LongestReason = 200;
/// Characters that an entry is found by; a search reads them all.
constexpr qsizetype MostSearched = qsizetype{64} * 1024;

bool IsHandedOver(LedgerState state)
{
    return state == LedgerState::Printed || state == LedgerState::Done;
}

} // namespace

RecordRun::Outcome RecordRun::OutcomeOfCards() const
{
    const auto& cards = Entry.Cards;
    const auto find = [&](LedgerState state) {
        return std::find_if(cards.begin(), cards.end(),
                            [&](const LedgerCard& card) { return card.State == state; });
    };
    if (!IsSettled() || (cards.empty() && !Entry.Pool.isEmpty()))
        return {cards.empty() ? LedgerState::Received : LedgerState::Printing, QString()};
    if (cards.empty())
        return {LedgerState::Failed, WhyNoCard};
    if (const auto failed = find(LedgerState::Failed); failed != cards.end())
        return {LedgerState::Failed, failed->Reason};
    if (find(LedgerState::Doubtful) != cards.end())
        return {LedgerState::Doubtful, QString()};
    const bool done = std::all_of(cards.begin(), cards.end(), [](const LedgerCard& card) {
        return card.State == LedgerState::Done;
    });
    const auto remarked = std::find_if(
        cards.begin(), cards.end(), [](const LedgerCard& card) { return !card.Reason.isEmpty(); });
    return {done ? LedgerState::Done : LedgerState::Printed,
            remarked == cards.end() ? QString() : remarked->Reason};
}

void RecordRun::Judge()
{
    const Outcome outcome = OutcomeOfCards();
    if (outcome.State == Entry.State && outcome.Reason == Entry.Reason)
        return;
    Entry.State = outcome.State;
    Entry.Reason = outcome.Reason;
    m_entryRow.Dirty = true;
}

void RecordRun::AddSearchText(const QString& value)
{
    if (m_valuesSearch.size() < MostSearched)
        m_valuesSearch += value.left(MostSearched).toCaseFolded() + QLatin1Char('\n');
}

QString RecordRun::SearchText() const
{
    QStringList words{Entry.Source, Entry.Layout};
    for (const LedgerCard& card : Entry.Cards) {
        words += card.Numbers;
        if (card.Layout != Entry.Layout)
            words += card.Layout;
    }
    words.removeDuplicates();
    QString text = words.join(QLatin1Char('\n')).toCaseFolded();
    text += QLatin1Char('\n') + m_valuesSearch;
    text.truncate(MostSearched);
    // A search ends at a null character.
    text.replace(QChar(QChar::Null), QLatin1Char(' '));
    return text;
}

bool RecordRun::MayBePostponed() const
{
    return m_wasInLedger && std::none_of(m_cardRows.begin(), m_cardRows.end(),
                                         [](const RowState& row) { return row.Stored; });
}

QString AnswerTo(const LedgerEntry& entry)
{
    const QString id = QString::number(entry.Id);
    const bool waitsInPool = entry.State == LedgerState::Received && !entry.Pool.isEmpty();
    if (!waitsInPool && !IsHandedOver(entry.State))
        return QStringLiteral("ERR %1 ").arg(id) + entry.Reason.simplified().left(LongestReason);
    const auto cards =
        std::count_if(entry.Cards.begin(), entry.Cards.end(),
                      [](const LedgerCard& card) { return IsHandedOver(card.State); });
    return QStringLiteral("OK %1 %2").arg(id, QString::number(cards));
}

} // namespace vantrel
