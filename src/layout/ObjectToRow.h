#pragma once

namespace vantrel {

class CardObject;
class Recordset;
struct PageKey;

/// Adds the row of one object to the cursor. What is neither a text nor an image gets none. Fails
/// like `Recordset`.
void ObjectToRow(const CardObject& object, const PageKey& key, Recordset& rows);

} // namespace vantrel
