#pragma once

#include <cstdint>

class QString;

namespace vantrel {

class CardDocument;
class CardObject;
class Session;

/// @file Commands for the object selected in the designer. Without an object they fail with
/// `ObjectNotSet` or `NoSuchElement`, unless stated otherwise. If the selection changes while a
/// question is open, the answer is ignored.

/// Deletes the selected object after confirmation and hides the grips. Deletes nothing without a
/// layout or a selection. A failing step is skipped.
void DeleteSelectedObject(Session& session);
/// Deletes all data fields of the page after confirmation and hides the grips. Does nothing without
/// a layout.
void DeleteAllFields(Session& session);

/// Make the object a tenth larger or smaller in both directions; its top left corner stays.
void IncreaseSize(Session& session);
void DecreaseSize(Session& session);

/// Kinds of check digits, by their numbers.
enum class CheckDigitKind { Mod10 = 0, Codabar = 1, Ebt = 2 };

/// Sets the kind of check digit of the object, or removes it if the object already has that kind.
void ToggleCheckDigit(CheckDigitKind kind, CardObject& object);
/// Call `ToggleCheckDigit` for the selected object.
void ToggleMod10(Session& session);
void ToggleCodabar(Session& session);
void ToggleEbt(Session& session);

/// Tick one alignment and set it on the selected object, if there is one.
void AlignLeft(Session& session);
void AlignRight(Session& session);
void AlignCenter(Session& session);

/// Asks for a new caption. An empty answer changes nothing.
void AdjustText(Session& session);
/// Gives a static text its caption, as `AdjustText` does with its answer. Does nothing if there is
/// no such text.
void GiveText(CardDocument& document, int index, const QString& text);
/// Asks for a text colour. A cancelled dialog changes nothing.
void AdjustTextColor(Session& session);
/// Asks for a font. A cancelled dialog, or an object without a font, changes nothing.
void AdjustFont(Session& session);
/// Toggles its tick; it has no other effect.
void ToggleVisibleOnCard(Session& session);

/// Toggles its tick. While it is on, the window of a station with design tools shows the last
/// record's values in place of the names of the fields, as they would print.
void ToggleShowValues(Session& session);

/// Assigns a value of the last record to the selected object: its position, counted from 1, and its
/// text as caption, or the placeholder if the value is empty. Does nothing if the object does not
/// exist. Fails with `SubscriptOutOfRange` if the record has no such value.
void ChooseDataField(Session& session, int position);
/// Opens the list of the last record's values at the pointer, without reference to a field.
void ShowFieldData(Session& session);
/// Clears the captions of all data fields, including the template.
void ClearDataFields(Session& session);

} // namespace vantrel
