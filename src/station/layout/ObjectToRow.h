#pragma once

namespace vantrel {

class CardObject;
class Recordset;
struct PageKey;

/// Writes an object to the current row, replacing its contents, or to a new row after the last, and
/// moves to the next row. An object that is neither a text nor an image is not written. Fails like
/// `Recordset`.
void ObjectToRow(const CardObject& object, const PageKey& key, Recordset& rows);

} // namespace vantrel
