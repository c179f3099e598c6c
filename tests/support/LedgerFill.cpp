#include "support/LedgerFill.h"
#include "ledger/LedgerTables.h"

namespace vantrel::test {

namespace {

QString SearchTextOf(const LedgerEntry& entry)
{
    QStringList lines = QStringList{entry.Source, entry.Layout} + entry.Values;
    for (const LedgerCard& card : entry.Cards)
        lines += card.Numbers;
    return lines.join(u'\n').toCaseFolded();
}

void AddCard(StoreDatabase& database, qlonglong entry, const LedgerCard& card)
{
    database.Change(QStringLiteral("INSERT INTO LedgerCards (EntryID, State, Page, Copy, Job, "
                                   "Changed, Layout, Printer, Numbers, PageHash, File, Reason) "
                                   "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                    {entry, NameOf(card.State), card.Page, card.Copy,
                     card.Job ? QVariant(*card.Job) : QVariant(), card.Changed, card.Layout,
                     card.Printer, ListText(card.Numbers), card.PageHash, card.File, card.Reason});
}

} // namespace

qlonglong AddLedgerEntry(StoreDatabase& database, LedgerEntry entry)
{
    QVariantList values{NameOf(entry.State),
                        entry.Received,
                        entry.Session,
                        entry.ReprintOf ? QVariant(*entry.ReprintOf) : QVariant(),
                        qlonglong{entry.Raw.size()},
                        qlonglong{entry.Values.size()},
                        entry.Source,
                        entry.Layout,
                        entry.Reason,
                        entry.Hash,
                        SearchTextOf(entry)};
    const bool hasNumber = entry.Id != 0;
    if (hasNumber)
        values.append(entry.Id);
    const qlonglong id = database.Add(
        QStringLiteral("INSERT INTO LedgerEntries (State, Received, SessionNumber, ReprintOf, "
                       "Length, ValueCount, Source, Layout, Reason, Hash, SearchText%1) "
                       "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?%2)")
            .arg(hasNumber ? QStringLiteral(", ID") : QString(),
                 hasNumber ? QStringLiteral(", ?") : QString()),
        values);
    if (entry.HasValues)
        database.Change(QStringLiteral("INSERT INTO LedgerRecords (EntryID, Framing, RecordValues, "
                                       "Raw) VALUES (?, ?, ?, ?)"),
                        {id, entry.Framing, ListText(entry.Values), entry.Raw});
    if (!entry.Pool.isEmpty())
        database.Change(QStringLiteral("INSERT INTO LedgerPools (EntryID, Pool) VALUES (?, ?)"),
                        {id, entry.Pool});
    for (const LedgerCard& card : entry.Cards)
        AddCard(database, id, card);
    return id;
}

LedgerCard CardIn(LedgerState state, const QStringList& numbers)
{
    LedgerCard card;
    card.Layout = QStringLiteral("Badge");
    card.Printer = QStringLiteral("Vantrel PDF");
    card.File = QStringLiteral("card-000001.pdf");
    card.Numbers = numbers;
    card.State = state;
    card.Changed = 1795269788120; // 2026-11-21 14:03:08.120 UTC.
    return card;
}

LedgerEntry PrintedEntry(const QStringList& values, const QStringList& numbers)
{
    LedgerEntry entry;
    entry.State = LedgerState::Printed;
    entry.Received = 1795269787120; // 2026-11-21 14:03:07.120 UTC.
    entry.Source = QStringLiteral("192.168.7.10:51234");
    entry.Layout = QStringLiteral("Badge");
    entry.Values = values;
    entry.Raw = QString(u'<' + values.join(u'+') + u'>').toUtf8();
    entry.Framing = QStringLiteral(R"({"start":"<","separator":"+","end":">"})");
    entry.Cards = {CardIn(LedgerState::Printed, numbers)};
    return entry;
}

} // namespace vantrel::test
