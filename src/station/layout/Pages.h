#pragma once

namespace vantrel {

class StationFace;
struct LayoutParamsRecord;
class Session;

/// Tells in the status bar which page of which layout is on the form; a page beyond the count is a
/// new one.
void RefreshData(StationFace& face, const QString& layoutName, const LayoutParamsRecord& params);

/// Goes to a new, empty page behind the last one. It exists on the form only until it is saved, and
/// keeps the parameters of the page before but for the back images.
bool NewPage(Session& session);

/// Asks, then deletes the page on the form: its number goes from all layouts of the store, and the
/// higher pages of all of them move down by one. The only page is cleared on the form instead.
/// Where another page is open by the time of the answer, nothing is deleted.
/// @return whether the operator did not refuse. Fails like `Recordset`; what was deleted or
/// moved until then stays so.
bool DeletePage(Session& session);

} // namespace vantrel
