#include "ledger/LedgerReading.h"
#include "base/Failure.h"
#include "ledger/LedgerTables.h"
#include "store/StoreDatabase.h"
#include <algorithm>
#include <limits>

namespace vantrel {

namespace {

/// Entries whose numbers are read at once. Between two such reads the database is free, so a
/// station can write and tidy its log however slowly the entries are taken.
constexpr qlonglong NumbersAtOnce = 512;
constexpr qlonglong HighestNumber = std::numeric_limits<qlonglong>::max();

QString FoundAnywhere(const QString& text)
{
    if (text.size() > LongestSearchText)
        throw Failure(FailureNumber::InvalidCall,
                      QStringLiteral("A text of more than %1 characters cannot be searched for.")
                          .arg(LongestSearchText));
    QString pattern = text.toCaseFolded();
    // As it stands in the rows.
    pattern.replace(QChar(QChar::Null), QLatin1Char(' '));
    for (const QChar special : {u'\\', u'%', u'_'})
        pattern.replace(special, QString(u'\\') + special);
    return u'%' + pattern + u'%';
}

/// A filter as a condition on `LedgerEntries` with the values of its placeholders.
struct Condition
{
    QString Sql;
    QVariantList Values;

    void Add(const QString& part, const QVariant& value)
    {
        Sql += (Sql.isEmpty() ? QStringLiteral(" WHERE ") : QStringLiteral(" AND ")) + part;
        Values.append(value);
    }
};

Condition ConditionOf(const StoreDatabase& database, const LedgerFilter& filter)
{
    Condition condition;
    // Most entries are in one state, and passing over all rows for a text is faster than looking
    // nearly all of them up by their state.
    const QString state = QStringLiteral("State");
    const QString received = QStringLiteral("Received");
    if (filter.State)
        condition.Add((filter.Text.isEmpty() ? state : database.WithoutIndex(state)) +
                          QStringLiteral(" = ?"),
                      NameOf(*filter.State));
    // What the index of arrivals finds would be sorted.
    if (filter.Since)
        condition.Add(database.WithoutIndex(received) + QStringLiteral(" >= ?"), *filter.Since);
    if (filter.Until)
        condition.Add(database.WithoutIndex(received) + QStringLiteral(" < ?"), *filter.Until);
    if (!filter.Text.isEmpty())
        condition.Add(QStringLiteral("SearchText LIKE ? ESCAPE '\\'"), FoundAnywhere(filter.Text));
    return condition;
}

/// The numbers between which all entries of a filter are, so that a search within a day does not
/// pass over all others. Clocks are set back now and then, so every arrival within the times
/// counts.
NumberRange RangeOf(StoreDatabase& database, const LedgerFilter& filter)
{
    NumberRange range;
    // Between two given numbers few entries are looked through.
    if ((filter.Since || filter.Until) && !(filter.From && filter.Before)) {
        range = {1, 0};
        const qint64 since = filter.Since.value_or(std::numeric_limits<qint64>::min());
        const qint64 until = filter.Until.value_or(std::numeric_limits<qint64>::max());
        database.Select(QStringLiteral("SELECT MIN(ID), MAX(ID) FROM LedgerEntries "
                                       "WHERE Received >= ? AND Received < ?"),
                        {since, until}, [&](const StoreRow& row) {
                            if (!row.Value(0).isNull())
                                range = {row.Value(0).toLongLong(), row.Value(1).toLongLong()};
                        });
    }
    if (filter.Before)
        range.Last = std::min(range.Last, *filter.Before - 1);
    if (filter.From)
        range.First = std::max(range.First, *filter.From);
    return range;
}

/// Hands over the numbers that a filter finds, newest first, until `take` returns false.
template <typename Take>
void ForEachNumber(StoreDatabase& database, const LedgerFilter& filter, Take&& take)
{
    NumberRange range = RangeOf(database, filter);
    Condition condition = ConditionOf(database, filter);
    condition.Add(QStringLiteral("ID >= ?"), range.First);
    condition.Add(QStringLiteral("ID <= ?"), range.Last);
    const qsizetype last = condition.Values.size() - 1;
    const QString sql = QStringLiteral("SELECT ID FROM LedgerEntries") + condition.Sql +
                        QStringLiteral(" ORDER BY ID DESC LIMIT ?");
    qlonglong left = filter.Limit > 0 ? filter.Limit : HighestNumber;
    std::vector<qlonglong> numbers;
    do {
        const qlonglong wanted = std::min(left, NumbersAtOnce);
        condition.Values[last] = range.Last;
        numbers.clear();
        database.Select(sql, condition.Values + QVariantList{wanted},
                        [&](const auto& row) { numbers.push_back(row.Value(0).toLongLong()); });
        for (const qlonglong number : numbers)
            take(number);
        left -= std::ssize(numbers);
        if (std::ssize(numbers) < wanted || left == 0)
            return;
        range.Last = numbers.back() - 1;
    } while (true);
}

LedgerState StateAt(const StoreRow& row, int column)
{
    // A name that a later version may have written.
    return LedgerStateOf(row.Value(column).toString()).value_or(LedgerState::Doubtful);
}

void ReadCards(StoreDatabase& database, LedgerEntry& entry)
{
    enum { Id, Layout, Page, Copy, Printer, Numbers, PageHash, Job, File, State, Reason, Changed };
    const auto take = [&entry](const StoreRow& row) {
        LedgerCard card;
        card.Id = row.Value(Id).toLongLong();
        card.Layout = row.Value(Layout).toString();
        card.Page = row.Value(Page).toInt();
        card.Copy = row.Value(Copy).toInt();
        card.Printer = row.Value(Printer).toString();
        card.Numbers = ListOf(row.Value(Numbers).toString());
        card.PageHash = row.Value(PageHash).toString();
        if (const QVariant job = row.Value(Job); !job.isNull())
            card.Job = job.toInt();
        card.File = row.Value(File).toString();
        card.State = StateAt(row, State);
        card.Reason = row.Value(Reason).toString();
        card.Changed = row.Value(Changed).toLongLong();
        entry.Cards.push_back(std::move(card));
    };
    database.Select(
        QStringLiteral("SELECT ID, Layout, Page, Copy, Printer, Numbers, PageHash, Job, "
                       "File, State, Reason, Changed FROM LedgerCards "
                       "WHERE EntryID = ? ORDER BY ID"),
        {entry.Id}, take);
}

} // namespace

void ReadEntries(StoreDatabase& database, const LedgerFilter& filter,
                 const std::function<void(const LedgerEntry&)>& take)
{
    ForEachNumber(database, filter, [&](qlonglong number) {
        // Another program may have removed it meanwhile.
        if (const auto entry = FindEntry(database, number, LedgerBytes::Without))
            take(*entry);
    });
}

std::vector<qlonglong> EntryNumbers(StoreDatabase& database, const LedgerFilter& filter)
{
    std::vector<qlonglong> numbers;
    ForEachNumber(database, filter, [&](qlonglong number) { numbers.push_back(number); });
    return numbers;
}

std::optional<LedgerEntry> FindEntry(StoreDatabase& database, qlonglong id, LedgerBytes bytes)
{
    enum { State, Reason, Received, Session, Source, Layout, Length, ValueCount, Hash, ReprintOf };
    enum { RecordValues = ReprintOf + 1, Framing, Raw };
    std::optional<LedgerEntry> found;
    const auto take = [&](const StoreRow& row) {
        LedgerEntry& entry = found.emplace();
        entry.Id = id;
        entry.State = StateAt(row, State);
        entry.Reason = row.Value(Reason).toString();
        entry.Received = row.Value(Received).toLongLong();
        entry.Session = row.Value(Session).toInt();
        entry.Source = row.Value(Source).toString();
        entry.Layout = row.Value(Layout).toString();
        entry.Length = row.Value(Length).toLongLong();
        entry.ValueCount = row.Value(ValueCount).toInt();
        entry.Hash = row.Value(Hash).toString();
        if (const QVariant first = row.Value(ReprintOf); !first.isNull())
            entry.ReprintOf = first.toLongLong();
        const QVariant values = row.Value(RecordValues);
        entry.HasValues = !values.isNull();
        entry.Values = ListOf(values.toString());
        if (bytes == LedgerBytes::With) {
            entry.Framing = row.Value(Framing).toString();
            entry.Raw = row.Value(Raw).toByteArray();
        }
    };
    const QString further =
        bytes == LedgerBytes::With ? QStringLiteral(", r.Framing, r.Raw") : QString();
    database.Select(QStringLiteral("SELECT e.State, e.Reason, e.Received, e.SessionNumber, "
                                   "e.Source, e.Layout, e.Length, e.ValueCount, e.Hash, "
                                   "e.ReprintOf, r.RecordValues") +
                        further +
                        QStringLiteral(" FROM LedgerEntries e "
                                       "LEFT JOIN LedgerRecords r ON r.EntryID = e.ID "
                                       "WHERE e.ID = ?"),
                    {id}, take);
    if (found)
        ReadCards(database, *found);
    return found;
}

LedgerEntry EntryNumbered(StoreDatabase& database, qlonglong id, LedgerBytes bytes)
{
    auto entry = FindEntry(database, id, bytes);
    if (!entry)
        throw Failure(FailureNumber::InvalidCall,
                      QStringLiteral("The ledger has no entry %1.").arg(id));
    return *std::move(entry);
}

NumberRange EntryRange(StoreDatabase& database, const LedgerFilter& filter)
{
    NumberRange range = RangeOf(database, filter);
    database.Select(QStringLiteral("SELECT (SELECT MIN(ID) FROM LedgerEntries), "
                                   "(SELECT MAX(ID) FROM LedgerEntries)"),
                    {}, [&](const StoreRow& row) {
                        range.First = std::max(range.First, row.Value(0).toLongLong());
                        range.Last = std::min(range.Last, row.Value(1).toLongLong());
                    });
    return range;
}

qlonglong CountEntries(StoreDatabase& database, const LedgerFilter& filter)
{
    Condition condition = ConditionOf(database, filter);
    const NumberRange range = RangeOf(database, filter);
    qlonglong count = 0;
    const auto take = [&count](const StoreRow& row) { count = row.Value(0).toLongLong(); };
    if (condition.Sql.isEmpty()) {
        // Two looks into the key; both ends in one statement would pass over all rows.
        database.Select(QStringLiteral("SELECT (SELECT MAX(ID) FROM LedgerEntries WHERE ID <= ?) - "
                                       "(SELECT MIN(ID) FROM LedgerEntries WHERE ID >= ?) + 1"),
                        {range.Last, range.First}, take);
        return std::max(count, qlonglong{0});
    }
    condition.Add(QStringLiteral("ID >= ?"), range.First);
    condition.Add(QStringLiteral("ID <= ?"), range.Last);
    // Arrivals alone are counted in their index.
    if (!filter.State && filter.Text.isEmpty())
        condition.Sql.replace(database.WithoutIndex(QStringLiteral("Received")),
                              QStringLiteral("Received"));
    database.Select(QStringLiteral("SELECT COUNT(*) FROM LedgerEntries") + condition.Sql,
                    condition.Values, take);
    return count;
}

} // namespace vantrel
