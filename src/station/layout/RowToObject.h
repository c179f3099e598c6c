#pragma once

namespace vantrel {

class Recordset;
class Session;

/// Creates the card object of the cursor's current row. A row of an unknown type creates nothing; a
/// value that cannot be applied leaves the default. Never fails.
void RowToObject(Session& session, const Recordset& row);

} // namespace vantrel
