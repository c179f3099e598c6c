#include "station/layout/StoredNumbers.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "card/CardDocument.h"
#include "store/Recordset.h"
#include <algorithm>
#include <map>

namespace vantrel {

namespace {

double NumberOf(const CardObject& number)
{
    double shown = 0;
    Skip("number", [&] { shown = ToDouble(number.DataField); });
    return shown;
}

/// @return whether the number was lower
bool RaiseTo(CardObject& number, double stored)
{
    if (!(stored > NumberOf(number)))
        return false;
    number.DataField = NumberText(stored);
    return true;
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

void KeepNumbers(const CardDocument& document, const std::map<qlonglong, double>& given)
{
    if (given.empty())
        return;
    for (CardObject* number : NumbersOn(document)) {
        const auto found = given.find(number->StoreKey);
        if (found != given.end() && RaiseTo(*number, found->second))
            number->SetCaption(number->DataField);
    }
}

void StoreHigherNumbers(const CardDocument& document, Recordset& rows)
{
    std::map<qlonglong, double> printed;
    for (const CardObject* number : NumbersOn(document))
        printed.emplace(number->StoreKey, NumberOf(*number));
    for (; !rows.IsEof(); rows.MoveNext()) {
        const auto found = printed.find(rows.RowKey());
        if (found == printed.end() || !IsNumberRow(rows) || !(found->second > StoredNumber(rows)))
            continue;
        rows.SetValue(QStringLiteral("C_Value"), NumberText(found->second));
        rows.Update();
    }
}

bool ShowHigherNumbers(CardDocument& document, const CardDocument& printed)
{
    bool anyRose = false;
    const std::vector<CardObject*> given = NumbersOn(printed);
    for (CardObject* number : NumbersOn(document)) {
        const auto found = std::ranges::find(given, number->StoreKey, &CardObject::StoreKey);
        if (number->StoreKey == 0 || found == given.end() || !RaiseTo(*number, NumberOf(**found)))
            continue;
        number->SetCaption((*found)->Caption());
        anyRose = true;
    }
    return anyRose;
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
