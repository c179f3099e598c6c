#include "ledger/LedgerCounts.h"
#include "ledger/LedgerRows.h"
#include "ledger/LedgerTables.h"
#include "store/StoreDatabase.h"
#include <QDateTime>
#include <QHash>
#include <QMap>
#include <QSet>
#include <algorithm>
#include <limits>

namespace vantrel {

namespace {

struct Times
{
    qint64 First = 0;
    /// Exclusive.
    qint64 End = 0;
};

using CountsByLayout = QMap<QString, LedgerCount>;

bool IsHandedOver(const QString& state)
{
    return state == NameOf(LedgerState::Printed) || state == NameOf(LedgerState::Done);
}

bool IsLost(const QString& state)
{
    return state == NameOf(LedgerState::Failed) || state == NameOf(LedgerState::Void);
}

void AddTo(LedgerCount& count, const QString& state, bool isReprint, qlonglong cards)
{
    if (IsHandedOver(state))
        (isReprint ? count.Reprinted : count.Issued) += cards;
    else if (state == NameOf(LedgerState::Failed))
        count.Failed += cards;
    else if (state == NameOf(LedgerState::Doubtful))
        count.Doubtful += cards;
    else if (state == NameOf(LedgerState::Void))
        count.Void += cards;
}

void CountDay(StoreDatabase& database, const Times& day, CountsByLayout& counts)
{
    enum { Layout, State, IsReprint, Cards };
    database.Select(QStringLiteral("SELECT c.Layout, c.State, e.ReprintOf IS NOT NULL, COUNT(*) "
                                   "FROM LedgerEntries e JOIN LedgerCards c ON c.EntryID = e.ID "
                                   "WHERE e.Received >= ? AND e.Received < ? GROUP BY 1, 2, 3"),
                    {day.First, day.End}, [&](const StoreRow& row) {
                        AddTo(counts[row.Value(Layout).toString()], row.Value(State).toString(),
                              row.Value(IsReprint).toInt() != 0, row.Value(Cards).toLongLong());
                    });
}

/// Each page of each layout counts on its own.
struct NumberOnPage
{
    QString Layout;
    int Page = 1;
    QString Number;

    friend bool operator==(const NumberOnPage&, const NumberOnPage&) = default;
    friend size_t qHash(const NumberOnPage& number, size_t seed = 0)
    {
        return qHashMulti(seed, number.Layout, number.Page, number.Number);
    }
};

/// The numbers on the cards of a record and of its reprints.
struct Numbers
{
    QSet<NumberOnPage> HandedOver;
    /// The first failed or void card of each number.
    QHash<NumberOnPage, qlonglong> FirstLost;
};

Numbers NumbersOf(StoreDatabase& database, qlonglong first)
{
    enum { Id, State, Layout, Page, OnCard };
    Numbers numbers;
    const auto take = [&](const StoreRow& row) {
        const QString state = row.Value(State).toString();
        for (const QString& text : ListOf(row.Value(OnCard).toString())) {
            const NumberOnPage number{row.Value(Layout).toString(), row.Value(Page).toInt(), text};
            if (IsHandedOver(state))
                numbers.HandedOver.insert(number);
            else if (IsLost(state) && !numbers.FirstLost.contains(number))
                numbers.FirstLost.insert(number, row.Value(Id).toLongLong());
        }
    };
    database.Select(QStringLiteral("SELECT ID, State, Layout, Page, Numbers FROM LedgerCards "
                                   "WHERE Numbers <> '[]' AND EntryID IN (SELECT ? UNION ALL "
                                   "SELECT ID FROM LedgerEntries WHERE ReprintOf = ?) ORDER BY ID"),
                    {first, first}, take);
    return numbers;
}

struct LostCard
{
    qlonglong Id = 0;
    QString Layout;
    int Page = 1;
    QStringList Numbers;
    /// The entry, or the first one where it is a reprint.
    qlonglong First = 0;
};

void FindVoidNumbers(StoreDatabase& database, const Times& day, CountsByLayout& counts)
{
    enum { Id, Layout, Page, OnCard, First };
    std::vector<LostCard> lost;
    database.Select(QStringLiteral("SELECT c.ID, c.Layout, c.Page, c.Numbers, "
                                   "COALESCE(e.ReprintOf, e.ID) "
                                   "FROM LedgerEntries e JOIN LedgerCards c ON c.EntryID = e.ID "
                                   "WHERE e.Received >= ? AND e.Received < ? "
                                   "AND c.State IN (?, ?) AND c.Numbers <> '[]' ORDER BY c.ID"),
                    {day.First, day.End, NameOf(LedgerState::Failed), NameOf(LedgerState::Void)},
                    [&](const StoreRow& row) {
                        lost.push_back({row.Value(Id).toLongLong(), row.Value(Layout).toString(),
                                        row.Value(Page).toInt(),
                                        ListOf(row.Value(OnCard).toString()),
                                        row.Value(First).toLongLong()});
                    });
    qlonglong known = 0;
    Numbers numbers;
    for (const LostCard& card : lost) {
        // The cards of one record follow each other.
        if (card.First != known)
            numbers = NumbersOf(database, known = card.First);
        QStringList& found = counts[card.Layout].VoidNumbers;
        for (const QString& text : card.Numbers) {
            const NumberOnPage number{card.Layout, card.Page, text};
            if (numbers.HandedOver.contains(number) || numbers.FirstLost.value(number) != card.Id)
                continue;
            found.append(text);
            numbers.FirstLost.remove(number);
        }
    }
}

/// The first arrival at or after a time, or nothing.
std::optional<qint64> NextArrival(StoreDatabase& database, qint64 from)
{
    std::optional<qint64> next;
    database.Select(QStringLiteral("SELECT MIN(Received) FROM LedgerEntries WHERE Received >= ?"),
                    {from}, [&](const StoreRow& row) {
                        if (!row.Value(0).isNull())
                            next = row.Value(0).toLongLong();
                    });
    return next;
}

} // namespace

void CountCards(StoreDatabase& database, std::optional<qint64> since, std::optional<qint64> until,
                const std::function<void(const LedgerCount&)>& take)
{
    const qint64 end = until.value_or(std::numeric_limits<qint64>::max());
    Times times{since.value_or(std::numeric_limits<qint64>::min()), 0};
    while (const auto next = NextArrival(database, times.First)) {
        if (*next >= end)
            return;
        const QDate day = QDateTime::fromMSecsSinceEpoch(*next).date();
        times.End = std::min(end, day.addDays(1).startOfDay().toMSecsSinceEpoch());
        // A time that no calendar has.
        times.End = std::max(times.End, *next + 1);
        CountsByLayout counts;
        CountDay(database, times, counts);
        FindVoidNumbers(database, times, counts);
        for (auto count = counts.begin(); count != counts.end(); ++count) {
            count->Day = day;
            count->Layout = count.key();
            take(*count);
        }
        times.First = times.End;
    }
}

} // namespace vantrel
