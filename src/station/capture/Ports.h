#pragma once

namespace vantrel {

class Session;

/// What a call of `SwitchPorts` acts on.
enum class SwitchMode { All = 0, Serial = 1, Parallel = 2, Network = 3 };

/// Re-applies the port settings: closes what the mode names and opens it again if its setting says
/// so. A port that cannot be opened is passed over in silence; none is opened in its place.
void SwitchPorts(Session& session, SwitchMode mode);

} // namespace vantrel
