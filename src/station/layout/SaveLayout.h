#pragma once

namespace vantrel {

class Session;

/// Whether a save tells the operator that it was done.
enum class SaveMessages { Shown, Silent };

/// Writes the page on the form to the store: its parameters, then all its objects, replacing the
/// page's rows in one transaction. Shows a box on failure, and on a page without objects. One that
/// fails leaves the page's rows in the file as they were.
/// @return true where the rows were committed and at least one object was written
bool SaveLayout(Session& session, SaveMessages messages);

} // namespace vantrel
