#pragma once

#include <vector>

namespace vantrel {

class CardDocument;
class CardObject;
class Recordset;

/// The automatic numbers of a document, in stacking order.
std::vector<CardObject*> NumbersOn(const CardDocument& document);
/// Whether the cursor's current row is an automatic number. Fails like `Recordset`.
bool IsNumberRow(const Recordset& row);
/// The number of the current row; 0 if it cannot be read. Never fails.
double StoredNumber(const Recordset& row);

/// Raises the document's automatic numbers to those that are stored for them now, if these are
/// higher: a page that was loaded before others took numbers must not give them a second time. A
/// number whose row is gone takes the highest one of the page that belongs to no other object.
/// @param rows  cursor over the stored page, at its first row; is moved to its end
/// Fails like `Recordset`.
void KeepHigherNumbers(CardDocument& document, Recordset& rows);

/// Notes for each automatic number the key of its row, which was just written.
/// @param rows  cursor over the stored page, at its first row; is moved to its end
/// Fails like `Recordset`.
void NoteNumberRows(CardDocument& document, Recordset& rows);

} // namespace vantrel
