#pragma once

#include "card/FieldValues.h"
#include <QString>
#include <memory>

namespace vantrel {

class CardDocument;
class CardObject;
struct PictureSource;

/// @file What a page would print with the values of a record, for looking at only: the page itself
/// stays as it is. Nothing here fails.

/// A copy of the page with the values in its data fields, shaped as on a printed card, with the
/// numbers that the next card gets, and with the pictures that the record names. Nothing is
/// selected on it.
/// @param decimalSeparator  the machine's, used by the EBT check digit
std::unique_ptr<CardDocument> PageWithValues(const CardDocument& document,
                                             const FieldValues& values,
                                             const PictureSource& pictures, QChar decimalSeparator);

/// What a data field or automatic number would print if it were shaped like `changed`, a copy of it
/// with another prefix, filter or check digit. Fields before it count as they are, since a field
/// without a prefix has that of the field before it.
QString CaptionWithValues(const CardDocument& document, const CardObject& changed,
                          const FieldValues& values, QChar decimalSeparator);

/// Where the value of a sample comes from: the last record, nowhere, or an automatic number.
enum class SampleSource { Record, Example, NextNumber };

/// A value as a dialog shows it, and what becomes of it on the card.
struct ValueSample
{
    SampleSource Source = SampleSource::Example;
    QString Value;
    QString Printed;
};

/// The value of a sample where there is no record.
inline constexpr QLatin1StringView ExampleValue{"12345"};

/// The sample for a copy of a field or number, see `CaptionWithValues`. Without a record the value
/// is `ExampleValue`.
ValueSample SampleOf(const CardDocument& document, const CardObject& changed,
                     const FieldValues& values, QChar decimalSeparator);

} // namespace vantrel
