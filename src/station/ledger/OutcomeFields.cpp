#include "station/ledger/OutcomeFields.h"
#include <algorithm>
#include <array>

namespace vantrel {

namespace {

/// The priorities of syslog(3).
constexpr const char* Warning = "4";
constexpr const char* Information = "6";

/// A longer name or reason is cut, in characters.
constexpr qsizetype MostLength = 1000;

QByteArray Cut(const QString& text)
{
    return text.left(MostLength).toUtf8();
}

bool IsHandedOver(const LedgerCard& card)
{
    return card.State == LedgerState::Printed || card.State == LedgerState::Done;
}

} // namespace

std::vector<JournalField> OutcomeFields(const LedgerEntry& entry, qint64 now)
{
    const QByteArray id = QByteArray::number(entry.Id);
    const QByteArray state = NameOf(entry.State).toLatin1();
    const QByteArray cards = QByteArray::number(
        qlonglong{std::count_if(entry.Cards.begin(), entry.Cards.end(), IsHandedOver)});
    const QByteArray reason = Cut(entry.Reason);
    const QByteArray milliseconds = QByteArray::number(qMax<qint64>(now - entry.Received, 0));
    const bool isGood = entry.State == LedgerState::Printed || entry.State == LedgerState::Done;

    QByteArray message =
        "record " + id + ' ' + state + ", cards: " + cards + ", " + milliseconds + " ms";
    if (!reason.isEmpty())
        message += ": " + reason;
    std::vector<JournalField> fields = {
        {"MESSAGE", message},
        {"PRIORITY", isGood ? Information : Warning},
        {"VANTREL_RECORD", id},
        {"VANTREL_STATE", state},
        {"VANTREL_SESSION", QByteArray::number(entry.Session)},
        {"VANTREL_SOURCE", Cut(entry.Source)},
        {"VANTREL_LAYOUT", Cut(entry.Layout)},
        {"VANTREL_CARDS", cards},
        {"VANTREL_MILLISECONDS", milliseconds},
    };
    if (!reason.isEmpty())
        fields.push_back({"VANTREL_REASON", reason});
    if (entry.ReprintOf)
        fields.push_back({"VANTREL_REPRINT_OF", QByteArray::number(*entry.ReprintOf)});
    return fields;
}

} // namespace vantrel
