#pragma once

namespace vantrel {

class Session;

/// @file What a station does with its store when it starts, and when the store comes later. None
/// fails.

/// Finds what was being printed when a station or a run ended.
void FindUnfinished(Session& session);
/// Opens the layout that was open last.
void ReopenLastLayout(Session& session);

} // namespace vantrel
