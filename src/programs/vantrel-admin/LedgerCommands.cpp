#include "LedgerCommands.h"
#include "LedgerViews.h"
#include "Output.h"
#include "base/Failure.h"
#include "ledger/LedgerExport.h"
#include "ledger/LedgerJson.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerTending.h"
#include "station/batch/FolderLedger.h"
#include "station/print/Reprint.h"
#include "store/Connection.h"
#include <QSaveFile>

namespace vantrel::admin {

namespace {

constexpr qlonglong UsualLimit = 100;
constexpr qlonglong MostDays = 1000000;

/// The ledger of a program folder, open.
class Ledger
{
public:
    explicit Ledger(const Words& words) { OpenFolderLedger(m_store, words.Arguments.at(0)); }
    StoreDatabase& Database() { return m_store.Database(); }
    Connection& Store() { return m_store; }

private:
    Connection m_store;
};

qlonglong EntryArgument(const Words& words)
{
    return NumberOf(words.Arguments.at(1), "ID", 1);
}

void FailAsUnwritable(const QString& path)
{
    throw Failure(FailureNumber::PathNotFound, QStringLiteral("Cannot be written: ") + path);
}

} // namespace

void RunLedgerList(const Words& words)
{
    LedgerFilter filter = FilterOf(words);
    if (!words.Has(LimitOption.Name))
        filter.Limit = UsualLimit;
    Ledger ledger(words);
    if (words.Has(JsonOption.Name)) {
        LedgerJsonList list("entries", WriteOutput);
        ReadEntries(ledger.Database(), filter,
                    [&](const LedgerEntry& entry) { list.Add(LedgerEntryJson(entry)); });
        list.End();
    } else {
        TextTable table(EntryColumns(), WriteOutput);
        ReadEntries(ledger.Database(), filter,
                    [&](const LedgerEntry& entry) { table.Add(EntryRow(entry)); });
        table.End();
    }
    FlushOutput();
}

void RunLedgerShow(const Words& words)
{
    const qlonglong id = EntryArgument(words);
    Ledger ledger(words);
    const LedgerEntry entry = EntryNumbered(ledger.Database(), id);
    if (words.Has(JsonOption.Name))
        WriteOutput(LedgerWholeEntryJson(entry) + '\n');
    else
        WriteEntry(entry, FindReprint(ledger.Database(), id), WriteOutput);
    FlushOutput();
}

void RunLedgerReprint(const Words& words)
{
    const qlonglong id = EntryArgument(words);
    Ledger ledger(words);
    StoreDatabase& database = ledger.Database();
    const bool again = words.Has(AgainOption.Name);
    if (const auto reprint = FindReprint(database, id); reprint && !again)
        throw Failure(FailureNumber::InvalidCall,
                      PrintedAgainAlready(database, id, *reprint) +
                          QStringLiteral(" With --again it is printed once more."));
    const qlonglong added =
        AskReprint(database, id, again ? ReprintMode::Again : ReprintMode::Once);
    const bool wasChanged =
        WasChangedSince(ledger.Store(), EntryNumbered(database, id, LedgerBytes::Without));
    if (words.Has(JsonOption.Name)) {
        WriteOutput("{\"id\": " + QByteArray::number(added) +
                    (wasChanged ? ", \"layout_changed\": true}\n" : "}\n"));
    } else {
        WriteOutput(QStringLiteral("Entry %1 is printed again as entry %2.\n")
                        .arg(id)
                        .arg(added)
                        .toLocal8Bit());
        if (wasChanged)
            WriteOutput("Its layout was changed since. The card is printed as it was then.\n");
    }
    FlushOutput();
}

void RunLedgerVoid(const Words& words)
{
    const qlonglong id = EntryArgument(words);
    Ledger ledger(words);
    VoidEntry(ledger.Database(), id);
}

void RunLedgerCounts(const Words& words)
{
    const LedgerFilter filter = FilterOf(words);
    Ledger ledger(words);
    if (words.Has(JsonOption.Name)) {
        LedgerJsonList list("counts", WriteOutput);
        CountCards(ledger.Database(), filter.Since, filter.Until,
                   [&](const LedgerCount& count) { list.Add(LedgerCountJson(count)); });
        list.End();
    } else {
        TextTable table(CountColumns(), WriteOutput);
        CountCards(ledger.Database(), filter.Since, filter.Until,
                   [&](const LedgerCount& count) { table.Add(CountRow(count)); });
        table.End();
    }
    FlushOutput();
}

void RunLedgerExport(const Words& words)
{
    const LedgerFilter filter = FilterOf(words);
    const QString path = words.Arguments.value(1, QStringLiteral("-"));
    Ledger ledger(words);
    if (path == QStringLiteral("-")) {
        ExportEntries(ledger.Database(), filter, WriteOutput);
        FlushOutput();
        return;
    }
    // A file of that name is replaced once the new one is whole.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        FailAsUnwritable(path);
    ExportEntries(ledger.Database(), filter, [&](const QByteArray& line) {
        if (file.write(line) != line.size())
            FailAsUnwritable(path);
    });
    if (!file.commit())
        FailAsUnwritable(path);
}

void RunLedgerPurge(const Words& words)
{
    const auto older = words.ValueOf(OlderOption.Name);
    if (older.has_value() == words.Has(AllOption.Name))
        throw NotUnderstood{QStringLiteral("purge wants either --older-than DAYS or --all")};
    std::optional<int> days;
    if (older)
        days = static_cast<int>(std::min(NumberOf(*older, OlderOption.Name, 0), MostDays));
    Ledger ledger(words);
    const qlonglong removed = PurgeEntries(ledger.Database(), days);
    WriteOutput(QStringLiteral("Entries removed: %1\n").arg(removed).toLocal8Bit());
    FlushOutput();
}

} // namespace vantrel::admin
