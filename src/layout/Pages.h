#pragma once

namespace vantrel {

class Session;

/// Tells in the status bar which page of which layout is on the form; a page beyond the count is a
/// new one.
void RefreshData(Session& session);

} // namespace vantrel
