#pragma once

namespace vantrel {

class Recordset;
class Session;

/// Makes the card object that the cursor's current row tells of. A row of an unknown type makes
/// nothing; a value that cannot be applied leaves what creation gave. Never fails.
void RowToObject(Session& session, const Recordset& row);

} // namespace vantrel
