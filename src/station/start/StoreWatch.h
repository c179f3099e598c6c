#pragma once

namespace vantrel {

class Session;

/// Looks twice a second whether the server that keeps the layouts can be reached, if a server keeps
/// them. While it cannot, this is told in the caption, in the status bar and in the log, and no
/// record begins its road; a store that could not be opened is tried again. Each try takes a second
/// at most.
void WatchStore(Session& session);

} // namespace vantrel
