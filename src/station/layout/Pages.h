#pragma once

#include <QString>

namespace vantrel {

class StationFace;
struct LayoutParamsRecord;
class Session;

/// Shows the layout and the page number in the status bar; a page above the count is shown as new.
void RefreshData(StationFace& face, const QString& layoutName, const LayoutParamsRecord& params);

/// Moves to a new, empty page after the last one. It exists only in memory until it is saved. It
/// inherits the parameters of the previous page except the back images.
bool NewPage(Session& session);

/// Deletes the open page after confirmation. The page number is deleted from all layouts of the
/// database, and higher pages of all layouts move down by one. If it is the only page, it is only
/// cleared in memory. If another page is open when the answer arrives, nothing is deleted.
/// @return false if the operator refused. Fails like `Recordset`; changes made until then stay
bool DeletePage(Session& session);

} // namespace vantrel
