#pragma once

namespace vantrel {

class CardObject;
class Recordset;
struct PageKey;
struct PictureSource;

/// Writes an object to the current row, replacing its contents, or to a new row after the last, and
/// moves to the next row. An object that is neither a text nor an image is not written. Fails like
/// `Recordset`.
/// @param pictures  an image that is named by records keeps its path although there is no such file
void ObjectToRow(const CardObject& object, const PageKey& key, const PictureSource& pictures,
                 Recordset& rows);

} // namespace vantrel
