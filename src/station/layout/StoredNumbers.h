#pragma once

#include <QtGlobal>
#include <map>
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

/// Raises the document's automatic numbers likewise to those that were given and could not be
/// stored.
/// @param given  by the keys of the numbers' rows
void KeepNumbers(const CardDocument& document, const std::map<qlonglong, double>& given);

/// Writes the document's automatic numbers into the rows that they were loaded from, and nothing
/// else, where they are higher than what is stored.
/// @param rows  cursor over the stored page that may change it, at its first row; is moved to its
/// end
/// Fails like `Recordset`.
void StoreHigherNumbers(const CardDocument& document, Recordset& rows);

/// Shows the numbers of a card that was printed on the same objects of another document, where they
/// are higher. @return whether any was
bool ShowHigherNumbers(CardDocument& document, const CardDocument& printed);

/// Notes for each automatic number the key of its row, which was just written.
/// @param rows  cursor over the stored page, at its first row; is moved to its end
/// Fails like `Recordset`.
void NoteNumberRows(CardDocument& document, Recordset& rows);

} // namespace vantrel
