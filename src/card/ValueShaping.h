#pragma once

#include <QString>
#include <optional>

namespace vantrel {

class CardObject;
class FieldValues;

/// The state that carries over from one data field to the next. It is empty at the start of each
/// pass over the page. Because of it, a record with too few values repeats its last value.
struct CarriedValue
{
    /// The filtered value without a check digit.
    QString Value;
    QString Prefix;
    QString Suffix;
};

/// @return the check digit of `text` by the scheme named `word`; nothing for any other word.
/// Codabar removes the blanks of `text`; EBT depends on the machine's decimal separator. Fails with
/// `TypeMismatch` if the scheme cannot read the text
std::optional<QString> CheckDigitByWord(const QString& word, QString& text, QChar decimalSeparator);

/// Builds the caption of a data field: prefix, the filtered value of its position with its check
/// digit, and suffix; or the placeholder if the filtered value is empty. A failing step is skipped
/// and leaves its part of `carried` unchanged.
QString ShapeDataField(const CardObject& field, const FieldValues& values, QChar decimalSeparator,
                       CarriedValue& carried);

} // namespace vantrel
