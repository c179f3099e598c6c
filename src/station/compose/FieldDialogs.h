#pragma once

#include "card/PadResult.h"
#include <QStringList>

namespace vantrel {

class FieldValues;
class CardDocument;

/// @file What the dialogs of a data field do: padding, prefix and suffix, filter characters. The
/// store learns of a change when the layout is saved.

/// The opening of the padding dialog forgets pad text, length and direction, not the field.
void BeginPad(PadResult& pad);
/// Texts of the dialog's list, one per value of the last record: "Data Field 1" and so on.
QStringList PadFieldTexts(const FieldValues& values);
/// A click in that list chooses the field whose number stands in the text.
void ChoosePadField(PadResult& pad, const QString& text);
/// The length as the dialog shows it: below 1 it reads "BYP", for bypassed.
QString PadLengthText(int length);
/// Whether a length can be taken from the text: a 16-bit number.
bool IsPadLength(const QString& text);
/// Takes over what the dialog shows. Fails with `TypeMismatch` or `Overflow`, and takes nothing,
/// where the text of the length is no such number, as "BYP" is none.
void SavePad(PadResult& pad, const QString& padChars, const QString& lengthText,
             std::int32_t direction);

/// What stands around the value of a data field.
struct PreSuffix
{
    QString Prefix;
    QString Suffix;
};

/// Reads them from the data field whose index is selected, whatever family is. Both are empty where
/// there is no such field.
PreSuffix SelectedPreSuffix(const CardDocument& document);
/// Writes them to that field, if there is one.
void SavePreSuffix(CardDocument& document, const PreSuffix& around);

/// Every character of the text is one that is removed from values, blanks too. Empty where nothing
/// is selected.
QString SelectedFilters(const CardDocument& document);
/// Writes them to the selected object, if there is one.
void SaveFilters(CardDocument& document, const QString& characters);

} // namespace vantrel
