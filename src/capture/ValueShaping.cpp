#include "capture/ValueShaping.h"
#include "capture/FieldValues.h"
#include "layout/CardObject.h"
#include "platform/Convert.h"
#include "platform/Skip.h"
#include "shaping/CheckDigits.h"
#include "shaping/StripChars.h"
#include <QStringList>

namespace vantrel {

namespace {

constexpr QChar CarriageReturn{13};

// A text without a carriage return is a prefix alone, and the suffix of the field before stays; an
// empty text leaves both.
void TakePrefixAndSuffix(const QString& toolTipText, CarriedValue& carried)
{
    if (toolTipText.isEmpty())
        return;
    const QStringList parts = toolTipText.split(CarriageReturn);
    carried.Prefix = parts[0];
    if (parts.size() > 1)
        carried.Suffix = parts[1];
}

// The text in front of the digit is the value as it was before the routine took its blanks.
QString WithCheckDigit(const QString& word, QString& value, QChar decimalSeparator)
{
    const QString before = value;
    return before + CheckDigitByWord(word, value, decimalSeparator).value_or(QString());
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
    return carried.Prefix + shaped + carried.Suffix;
}

} // namespace vantrel
