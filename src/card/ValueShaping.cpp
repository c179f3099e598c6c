#include "card/ValueShaping.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "card/CardObject.h"
#include "card/CheckDigits.h"
#include "card/FieldValues.h"
#include "card/StripChars.h"

namespace vantrel {

namespace {

constexpr QChar CarriageReturn{13};

// A text without a carriage return is a prefix only, and the suffix of the previous field stays; an
// empty text leaves both unchanged.
void TakePrefixAndSuffix(const QString& toolTipText, CarriedValue& carried)
{
    if (toolTipText.isEmpty())
        return;
    const qsizetype end = toolTipText.indexOf(CarriageReturn);
    carried.Prefix = toolTipText.left(end);
    if (end < 0)
        return;
    const qsizetype endOfSuffix = toolTipText.indexOf(CarriageReturn, end + 1);
    carried.Suffix = toolTipText.mid(end + 1, endOfSuffix < 0 ? -1 : endOfSuffix - end - 1);
}

// The digit is appended to the value as it was before the check digit routine removed its blanks.
QString WithCheckDigit(const QString& word, QString& value, QChar decimalSeparator)
{
    const QString before = value;
    const auto digit = CheckDigitByWord(word, value, decimalSeparator);
    return digit ? before + *digit : before;
}

} // namespace

std::optional<QString> CheckDigitByWord(const QString& word, QString& text, QChar decimalSeparator)
{
    if (word == WordMod10)
        return QString::number(Mod10CheckDigit(text));
    if (word == WordCodabar)
        return CodabarCheckDigit(text);
    if (word == WordEbt)
        return QString::number(EbtCheckDigit(text, decimalSeparator));
    return std::nullopt;
}

QString ShapeDataField(const CardObject& field, const FieldValues& values, QChar decimalSeparator,
                       CarriedValue& carried)
{
    Skip("value of the field", [&] { carried.Value = values.Item(ToLong(field.DataField)); });
    carried.Value = StripChars(field.Tag, carried.Value);
    TakePrefixAndSuffix(field.ToolTipText, carried);

    QString shaped;
    Skip("check digit",
         [&] { shaped = WithCheckDigit(field.DataMember, carried.Value, decimalSeparator); });
    if (carried.Value.isEmpty())
        return QStringLiteral("Data Field ") + field.DataField;
    // A value of megabytes is shared by all fields without prefix and suffix.
    if (carried.Prefix.isEmpty() && carried.Suffix.isEmpty())
        return shaped;
    return carried.Prefix + shaped + carried.Suffix;
}

} // namespace vantrel
