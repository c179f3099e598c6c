#pragma once

namespace vantrel {

class Session;

/// Prints the page that is open as one job, then saves it. Called by `PrintCard` only. A failing
/// step is passed over, printer by printer step.
void PrintCard_Ex(Session& session);

} // namespace vantrel
