#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

class CardObject;
class Recordset;

/// Which page an object's row belongs to.
struct PageKey
{
    QString LayoutName;
    std::int16_t Page = 0;
};

/// Adds the row of one object to the cursor. What is neither a text nor an image gets none. Fails
/// like `Recordset`.
void ObjectToRow(const CardObject& object, const PageKey& key, Recordset& rows);

} // namespace vantrel
