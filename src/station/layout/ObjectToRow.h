#pragma once

namespace vantrel {

class CardObject;
class Recordset;
struct PageKey;

/// Puts an object into the row the cursor stands on, whatever that held, or into a new one behind
/// the last, and goes on to the next. What is neither a text nor an image takes no row. Fails like
/// `Recordset`.
void ObjectToRow(const CardObject& object, const PageKey& key, Recordset& rows);

} // namespace vantrel
