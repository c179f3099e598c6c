#include "station/ledger/TakeNumbers.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "card/CardDocument.h"
#include "station/layout/StoreStatements.h"
#include "station/layout/StoredNumbers.h"
#include "store/Recordset.h"

namespace vantrel {

namespace {

/// Raises the number of the current row. A stored number that cannot be read counts as 0, as it
/// does when the page is loaded.
/// @return the number before
QString Raise(Recordset& row)
{
    const double number = StoredNumber(row);
    QString before = NumberText(number);
    const QString raised = NumberText(number + 1);
    if (raised == before)
        throw Failure(FailureNumber::Overflow,
                      QStringLiteral("The automatic number %1 cannot rise").arg(before));
    row.SetValue(QStringLiteral("C_Value"), raised);
    row.Update();
    return before;
}

} // namespace

StoreLock LockOfNumbers(const QString& layoutName, std::int16_t page)
{
    return StoreLock::OfName(QStringLiteral("numbers of page %1 of ").arg(page) + layoutName);
}

std::optional<QStringList> TakeNumbers(Connection& layoutDb, const QString& layoutName,
                                       std::int16_t page, CardDocument& document)
{
    const std::vector<CardObject*> numbers = NumbersOn(document);
    if (numbers.empty())
        return QStringList();
    Recordset rows(layoutDb);
    rows.Open(ObjectsOfPage(layoutName, page), CursorLock::Optimistic);
    QStringList before;
    for (; !rows.IsEof(); rows.MoveNext()) {
        if (IsNumberRow(rows))
            before.append(Raise(rows));
    }
    if (before.size() != static_cast<qsizetype>(numbers.size()))
        return {};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i]->DataField = before[static_cast<qsizetype>(i)];
    return NextNumbers(document);
}

QStringList NextNumbers(const CardDocument& document)
{
    QStringList next;
    for (const CardObject* number : NumbersOn(document))
        Skip("number", [&] { next.append(NumberText(ToDouble(number->DataField) + 1)); });
    return next;
}

} // namespace vantrel
