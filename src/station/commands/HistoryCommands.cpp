#include "station/commands/HistoryCommands.h"
#include "ledger/LedgerReading.h"
#include "station/print/Reprint.h"
#include "station/session/Session.h"
#include "store/StoreDatabase.h"
#include <algorithm>

namespace vantrel {

namespace {

constexpr qsizetype MostNumbersNamed = 10;

LedgerEntry EntryOf(Session& session, qlonglong id)
{
    return EntryNumbered(session.LayoutDb.Database(), id, LedgerBytes::Without);
}

QString TextOfState(const LedgerEntry& entry)
{
    switch (entry.State) {
    case LedgerState::Printed:
    case LedgerState::Done:
        return QStringLiteral("Entry %1 was printed.").arg(entry.Id);
    case LedgerState::Doubtful:
        return QStringLiteral("It is not known whether entry %1 was printed: the station ended in "
                              "between. Look for its card first.")
            .arg(entry.Id);
    case LedgerState::Void:
        return QStringLiteral("Entry %1 was declared void.").arg(entry.Id);
    case LedgerState::Received:
    case LedgerState::Printing:
    case LedgerState::Failed:
        break;
    }
    return {};
}

QString CardsOf(const LedgerEntry& entry)
{
    if (entry.Cards.empty())
        return QStringLiteral("No card of it was begun.");
    QStringList numbers;
    for (const LedgerCard& card : entry.Cards)
        numbers += card.Numbers;
    const auto cards = std::ssize(entry.Cards);
    QString text = cards == 1 ? QStringLiteral("1 card") : QStringLiteral("%1 cards").arg(cards);
    // In one call, since a layout's name may contain "%1".
    text += QStringLiteral(" of the layout ") + entry.Cards.front().Layout;
    if (numbers.isEmpty())
        return text + u'.';
    const bool isCut = numbers.size() > MostNumbersNamed;
    numbers = numbers.first(std::min(numbers.size(), MostNumbersNamed));
    return text + QStringLiteral(" with the numbers ") + numbers.join(QStringLiteral(", ")) +
           (isCut ? QStringLiteral(" and others.") : QStringLiteral("."));
}

} // namespace

ReprintQuestion AskBeforeReprint(Session& session, qlonglong id)
{
    const LedgerEntry entry = EntryOf(session, id);
    const LedgerEntry first = EntryToReprint(session.LayoutDb.Database(), id);
    ReprintQuestion question;
    QStringList reasons;
    if (const QString state = TextOfState(entry); !state.isEmpty())
        reasons += state;
    if (first.Id != entry.Id) {
        if (const QString state = TextOfState(first); !state.isEmpty())
            reasons += state;
    }
    if (const auto reprint = FindReprint(session.LayoutDb.Database(), id)) {
        question.Mode = ReprintMode::Again;
        reasons += QStringLiteral("It was printed again before, as entry %1.").arg(*reprint);
    }
    if (!first.Cards.empty() && WasChangedSince(session.LayoutDb, first))
        reasons += QStringLiteral("Its layout was changed since. The card is printed as it was "
                                  "then.");
    if (!reasons.isEmpty())
        question.Text =
            reasons.join(u'\n') + QStringLiteral("\n\nPrint it again? ") + CardsOf(first);
    return question;
}

QString ReprintFromHistory(Session& session, qlonglong id, ReprintMode mode)
{
    const qlonglong added = AskReprint(session.LayoutDb.Database(), id, mode);
    const int by = EntryOf(session, added).Session;
    if (by == session.SessionNumber && session.Options.Ledger)
        return QStringLiteral("Entry %1 is printed again as entry %2.").arg(id).arg(added);
    if (by == NoSession)
        return QStringLiteral("Entry %1 waits as entry %2 for a station of its pool to print it.")
            .arg(id)
            .arg(added);
    return QStringLiteral("Entry %1 waits as entry %2 for session %3 to print it.")
        .arg(id)
        .arg(added)
        .arg(by);
}

QString AskBeforeVoid(Session& session, qlonglong id)
{
    const LedgerEntry entry = EntryOf(session, id);
    QString text = QStringLiteral("Declare entry %1 void? ").arg(id) + CardsOf(entry);
    if (entry.State == LedgerState::Received)
        text += QStringLiteral("\nIt still waits to be printed and then never is.");
    return text + QStringLiteral("\n\nThis cannot be taken back.");
}

QString VoidFromHistory(Session& session, qlonglong id)
{
    VoidEntry(session.LayoutDb.Database(), id);
    return QStringLiteral("Entry %1 is void.").arg(id);
}

} // namespace vantrel
