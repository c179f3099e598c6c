#pragma once

#include "store/ColumnReader.h"
#include <vector>

namespace vantrel {

class CardDocument;
class Connection;
struct PageKey;

/// @file The table `ObjectExtras`: what objects have beyond the columns of `Controls`, a row for
/// each object that has any. A database gets the table when the first such page is saved.
///
/// | Column | |
/// |---|---|
/// | `RowKey` | hidden key |
/// | `LayoutName`, `Page` | the page of the object, as in `Controls` |
/// | `Kind` | "BDF", "TXT", "AUTO", "IMG" or "CVIEW" |
/// | `Name` | the number of a data field, the beginning of a static text; else empty |
/// | `Place` | counts from 1 among the page's objects of the same kind and name |
/// | `Extras` | `CardObject::Extras` as JSON |
///
/// So an object is found again by what it is: a station that does not know the table can move,
/// delete or restack other objects of the page.

/// Whether the database has the table. Fails like `Connection::HasTable`.
bool HasExtras(Connection& store);

/// Gives the objects of a page that was just loaded their extras. Fails like `Recordset`.
void LoadExtras(Connection& store, const PageKey& page, CardDocument& document);
/// Gives the objects of a page their extras from rows of the table, wherever they are kept.
void GiveExtras(CardDocument& document, const std::vector<ColumnReader>& rows);
/// Replaces the extras of the stored page by those of the document. Writes only what differs, and
/// makes the table if it is wanted. Fails like `Recordset`.
void SaveExtras(Connection& store, const PageKey& page, const CardDocument& document);

} // namespace vantrel
