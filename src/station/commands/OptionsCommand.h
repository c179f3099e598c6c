#pragma once

#include "station/session/StationOptions.h"

namespace vantrel {

class Session;

/// Writes the options that an operator has changed, and no others, to the settings file and applies
/// at once what may take effect in a running session. A file that cannot be written is told.
/// @return whether all of them are written
bool SaveOptions(Session& session, const StationOptions& before, const StationOptions& after);

/// What saving the changes will do, in one or two plain sentences; empty without a change.
QString ToldOfChanges(const StationOptions& before, const StationOptions& after);

} // namespace vantrel
