#pragma once

namespace vantrel {

class Session;

/// Prints the open page as one job, then saves it. Called by `PrintCard` only. Every printer
/// operation that fails is skipped.
void PrintCard_Ex(Session& session);

} // namespace vantrel
