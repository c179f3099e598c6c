#pragma once

#include "station/session/StationFace.h"

namespace vantrel {

class Session;

/// The panel of the status bar that shows the pool of the station: its name, and how many records
/// wait in it that no station has taken yet. Its tool tip tells what the station does in the pool,
/// too. Asks the store once. Never fails: while the store cannot tell, the name is shown alone.
/// @return empty texts if the station belongs to no pool
Panel PoolPanel(Session& session);

} // namespace vantrel
