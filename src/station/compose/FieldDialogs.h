#pragma once

#include "card/PadResult.h"
#include <QStringList>

namespace vantrel {

class FieldValues;
class CardDocument;
class Session;
struct ValueSample;

/// @file The dialogs of a data field: padding, prefix and suffix, filter characters. Changes are
/// stored when the layout is saved.

/// Called when the padding dialog opens. Resets pad text, length and direction, but not the field.
void BeginPad(PadResult& pad);
/// Texts of the dialog's list, one for each of the first `MostValuesListed` values of the last
/// record: "Data Field 1" and so on.
QStringList PadFieldTexts(const FieldValues& values);
/// Selects the field whose number is in the text of the clicked row.
void ChoosePadField(PadResult& pad, const QString& text);
/// The length as text; "BYP" (bypassed) if it is below 1.
QString PadLengthText(int length);
/// Whether the text is a valid length: a 16-bit number.
bool IsPadLength(const QString& text);
/// Stores the dialog's values in `pad`. If the length is not a 16-bit number (such as "BYP"), fails
/// with `TypeMismatch` or `Overflow` and stores nothing.
void SavePad(PadResult& pad, const QString& padChars, const QString& lengthText,
             std::int32_t direction);

/// The texts before and after the value of a data field.
struct PreSuffix
{
    QString Prefix;
    QString Suffix;
};

/// Reads them from the data field with the selected index, even if an object of another family is
/// selected. Both are empty if there is no such field.
PreSuffix SelectedPreSuffix(const CardDocument& document);
/// Writes them to the same field, if it exists.
void SavePreSuffix(CardDocument& document, const PreSuffix& around);

/// The characters, blanks included, that are removed from values of the selected object. Empty if
/// nothing is selected.
QString SelectedFilters(const CardDocument& document);
/// Sets these characters on the selected object, if there is one.
void SaveFilters(CardDocument& document, const QString& characters);

/// What the selected field would print with another prefix and suffix, or the selected field or
/// number with other filter characters. Empty if nothing of the kind is selected.
ValueSample SampleOfPreSuffix(const Session& session, const PreSuffix& around);
ValueSample SampleOfFilters(const Session& session, const QString& characters);
/// What the value of the chosen field would become with that padding, or an example while none is
/// chosen. A text that is no length leaves it as it is.
ValueSample SampleOfPad(const Session& session, const QString& padChars, const QString& lengthText,
                        std::int32_t direction);

} // namespace vantrel
