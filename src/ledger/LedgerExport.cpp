#include "ledger/LedgerExport.h"
#include "base/CsvLine.h"
#include "ledger/LedgerJson.h"
#include "ledger/LedgerTables.h"
#include "store/StoreDatabase.h"
#include <algorithm>

namespace vantrel {

namespace {

/// One line of the export.
class Line : public CsvLine
{
public:
    using CsvLine::Add;
    void Add(qlonglong number) { Add(QString::number(number)); }
    template <typename Number>
    void Add(const std::optional<Number>& number)
    {
        Add(number ? QString::number(*number) : QString());
    }
    QByteArray Ended() const { return Bytes() + "\r\n"; }
};

constexpr const char* EntryNames[] = {"id",     "state",      "received", "session", "source",
                                      "layout", "reprint_of", "reason",   "length"};
constexpr const char* CardNames[] = {"card_layout", "page", "copy",       "printer",     "numbers",
                                     "job",         "file", "card_state", "card_reason", "changed"};

void AddEntry(Line& line, const LedgerEntry& entry)
{
    line.Add(entry.Id);
    line.Add(NameOf(entry.State));
    line.Add(LedgerTimeText(entry.Received));
    line.Add(entry.Session);
    line.Add(entry.Source);
    line.Add(entry.Layout);
    line.Add(entry.ReprintOf);
    line.Add(entry.Reason);
    line.Add(entry.Length);
}

void AddCard(Line& line, const LedgerCard& card)
{
    line.Add(card.Layout);
    line.Add(card.Page);
    line.Add(card.Copy);
    line.Add(card.Printer);
    line.Add(card.Numbers.join(u' '));
    line.Add(card.Job);
    line.Add(card.File);
    line.Add(NameOf(card.State));
    line.Add(card.Reason);
    line.Add(LedgerTimeText(card.Changed));
}

void AddNoCard(Line& line)
{
    for (std::size_t i = 0; i < std::size(CardNames); ++i)
        line.Add(QString());
}

/// The columns of the values.
struct ValueColumns
{
    int Own = 0;
    bool HasFurther = false;

    void AddNames(Line& line) const
    {
        for (int value = 1; value <= Own; ++value)
            line.Add(QStringLiteral("value_%1").arg(value));
        if (HasFurther)
            line.Add(QStringLiteral("further_values"));
    }
    void AddValues(Line& line, const QStringList& values) const
    {
        for (int value = 0; value < Own; ++value)
            line.Add(values.value(value));
        if (HasFurther)
            line.Add(values.size() > Own ? ListText(values.mid(Own)) : QString());
    }
};

/// The highest number of an entry. Those that arrive later are left out, since they may have more
/// values than columns.
qlonglong LastNumber(StoreDatabase& database)
{
    qlonglong last = 0;
    database.Select(QStringLiteral("SELECT MAX(ID) FROM LedgerEntries"), {},
                    [&](const StoreRow& row) { last = row.Value(0).toLongLong(); });
    return last;
}

ValueColumns ColumnsOf(StoreDatabase& database)
{
    qlonglong most = 0;
    database.Select(QStringLiteral("SELECT MAX(ValueCount) FROM LedgerEntries"), {},
                    [&](const StoreRow& row) { most = row.Value(0).toLongLong(); });
    return {static_cast<int>(std::min<qlonglong>(most, ExportedValues)), most > ExportedValues};
}

} // namespace

void ExportEntries(StoreDatabase& database, const LedgerFilter& filter,
                   const std::function<void(const QByteArray&)>& write)
{
    LedgerFilter known = filter;
    const qlonglong behind = LastNumber(database) + 1;
    known.Before = std::min(filter.Before.value_or(behind), behind);
    const ValueColumns values = ColumnsOf(database);
    Line names;
    for (const char* name : EntryNames)
        names.Add(QString(QLatin1StringView(name)));
    for (const char* name : CardNames)
        names.Add(QString(QLatin1StringView(name)));
    values.AddNames(names);
    write(names.Ended());
    const auto writeLine = [&](const LedgerEntry& entry, const LedgerCard* card) {
        Line line;
        AddEntry(line, entry);
        if (card != nullptr)
            AddCard(line, *card);
        else
            AddNoCard(line);
        values.AddValues(line, entry.Values);
        write(line.Ended());
    };
    ReadEntries(database, known, [&](const LedgerEntry& entry) {
        for (const LedgerCard& card : entry.Cards)
            writeLine(entry, &card);
        if (entry.Cards.empty())
            writeLine(entry, nullptr);
    });
}

} // namespace vantrel
