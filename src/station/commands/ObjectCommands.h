#pragma once

#include <cstdint>

namespace vantrel {

class CardObject;
class Session;

/// @file What the commands do to the object selected in the designer. Where a command finds no
/// object it fails with `ObjectNotSet` or `NoSuchElement`, unless it says otherwise. A selection
/// that goes while a question is open is left alone.

/// Asks, then removes the selected object and hides the grips. Without a layout or a selection it
/// removes nothing. A failing step is passed over.
void DeleteSelectedObject(Session& session);
/// Asks, then removes every data field of the page and hides the grips. Does nothing without a
/// layout.
void DeleteAllFields(Session& session);

/// Make the object a tenth wider and higher, or narrower and lower, at the same corner.
void IncreaseSize(Session& session);
void DecreaseSize(Session& session);

/// The kinds of check digit by their numbers.
enum class CheckDigitKind { Mod10 = 0, Codabar = 1, Ebt = 2 };

/// Gives the object that kind of check digit, or none where it has that kind.
void ToggleCheckDigit(CheckDigitKind kind, CardObject& object);
/// The same for the selected object.
void ToggleMod10(Session& session);
void ToggleCodabar(Session& session);
void ToggleEbt(Session& session);

/// Tick one alignment and give it to the selected object, if there is one.
void AlignLeft(Session& session);
void AlignRight(Session& session);
void AlignCenter(Session& session);

/// Asks for a new text. An empty answer changes nothing.
void AdjustText(Session& session);
/// Asks for a colour of the text.
void AdjustTextColor(Session& session);
/// Asks for a font. A cancel, or an object that has none, changes nothing.
void AdjustFont(Session& session);
/// Flips a tick and nothing more.
void ToggleVisibleOnCard(Session& session);

/// Gives the selected object a value of the last record: its position, counted from 1, and its text
/// as caption, or the placeholder where the value is empty. Does nothing where no object of the
/// selected family is there. Fails with `SubscriptOutOfRange`.
void ChooseDataField(Session& session, int position);
/// Opens the list of the last record's values at the pointer, for nobody's field.
void ShowFieldData(Session& session);
/// Empties the captions of all data fields, the template's too.
void ClearDataFields(Session& session);

} // namespace vantrel
