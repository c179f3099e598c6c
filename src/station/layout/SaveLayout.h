#pragma once

namespace vantrel {

class Session;

/// Whether a successful save is reported to the operator.
enum class SaveMessages { Shown, Silent };

/// Saves the page in memory: its parameters, then all its objects, which replace the page's rows in
/// one transaction. Shows a message box on failure, and for a page without objects. After a failure
/// the page's rows in the file are unchanged.
/// @return true if the rows were committed and at least one object was written
bool SaveLayout(Session& session, SaveMessages messages);

} // namespace vantrel
