#pragma once

namespace vantrel {

class Session;

/// The ports that `SwitchPorts` acts on.
enum class SwitchMode { All = 0, Serial = 1, Parallel = 2, Network = 3 };

/// Applies the port settings: closes the ports of the mode and opens those that are in use. A port
/// that cannot be opened is skipped silently. A station that only prints for its pool opens none.
/// Never fails.
void SwitchPorts(Session& session, SwitchMode mode);

} // namespace vantrel
