#pragma once

namespace vantrel {

class Session;
struct LayoutPage;

/// Whether a successful save is reported to the operator.
enum class SaveMessages { Shown, Silent };

/// Saves the page in memory: its parameters, then all its objects, which replace the page's rows in
/// one transaction. Shows a message box on failure, and for a page without objects; with
/// `Options.DesignTools` such a page stays as it is, on the surface and in the store. After a
/// failure the page's rows in the file are unchanged.
/// @return true if the rows were committed and at least one object was written
bool SaveLayout(Session& session, SaveMessages messages);

/// Stores the automatic numbers of a page behind the surface, which was printed. Nothing else of
/// the page is written, so the layout in the store stays as the operator has saved it. If that
/// fails, a message box is shown and the session keeps the numbers, so that none is given twice.
void SaveNumbers(Session& session, const LayoutPage& page);

} // namespace vantrel
