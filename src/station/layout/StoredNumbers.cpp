#include "station/layout/StoredNumbers.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "card/CardDocument.h"
#include "store/Recordset.h"
#include <algorithm>
#include <map>

namespace vantrel {

namespace {

void RaiseTo(CardObject& number, double stored)
{
    double shown = 0;
    Skip("number", [&] { shown = ToDouble(number.DataField); });
    if (stored > shown)
        number.DataField = NumberText(stored);
}

} // namespace

std::vector<CardObject*> NumbersOn(const CardDocument& document)
{
    std::vector<CardObject*> numbers;
    for (const auto& object : document.Objects()) {
        if (object->IsContent() && object->LinkItem == Marker::AutoNumber)
            numbers.push_back(object.get());
    }
    return numbers;
}

bool IsNumberRow(const Recordset& row)
{
    return JoinedText(row.Value(QStringLiteral("Control_Type"))) == Marker::LabelRow &&
           JoinedText(row.Value(QStringLiteral("C_Param_1"))) == Marker::AutoNumber;
}

double StoredNumber(const Recordset& row)
{
    double number = 0;
    Skip("number", [&] {
        const QVariant stored = row.Value(QStringLiteral("C_Value"));
        number = stored.isNull() ? 0 : ToDouble(stored);
    });
    return number;
}

void KeepHigherNumbers(CardDocument& document, Recordset& rows)
{
    std::map<qlonglong, double> stored;
    for (; !rows.IsEof(); rows.MoveNext()) {
        if (IsNumberRow(rows))
            stored.emplace(rows.RowKey(), StoredNumber(rows));
    }
    std::vector<CardObject*> without;
    for (CardObject* number : NumbersOn(document)) {
        if (const auto own = stored.extract(number->StoreKey))
            RaiseTo(*number, own.mapped());
        else
            without.push_back(number);
    }
    double highest = 0;
    for (const auto& [key, number] : stored)
        highest = std::max(highest, number);
    for (CardObject* number : without)
        RaiseTo(*number, highest);
}

void NoteNumberRows(CardDocument& document, Recordset& rows)
{
    const std::vector<CardObject*> numbers = NumbersOn(document);
    std::size_t next = 0;
    for (; !rows.IsEof() && next < numbers.size(); rows.MoveNext()) {
        if (IsNumberRow(rows))
            numbers[next++]->StoreKey = rows.RowKey();
    }
}

} // namespace vantrel
