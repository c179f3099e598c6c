#pragma once

#include <QString>
#include <optional>

namespace vantrel {

class CardObject;
class FieldValues;

/// What shaping one data field leaves in hand for the next one. It starts empty with each pass over
/// the page; a record with too few values repeats its last one through it.
struct CarriedValue
{
    /// Filtered, without a check digit.
    QString Value;
    QString Prefix;
    QString Suffix;
};

/// @return the check digit that `word` names for `text`, as text; none for any other word. The
/// Codabar routine removes the blanks of `text`, the EBT routine goes by the machine's decimal
/// separator. Fails with `TypeMismatch` where the scheme cannot
/// read the text.
std::optional<QString> CheckDigitByWord(const QString& word, QString& text, QChar decimalSeparator);

/// Makes the caption of a data field: the value of its position, filtered, with its check digit,
/// between prefix and suffix; the placeholder where the filtered value is empty. A failing step is
/// passed over and leaves in `carried` what it held.
QString ShapeDataField(const CardObject& field, const FieldValues& values, QChar decimalSeparator,
                       CarriedValue& carried);

} // namespace vantrel
