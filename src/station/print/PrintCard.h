#pragma once

namespace vantrel {

class Session;

/// Prints the open layout with the values of the last record. Each page of each copy is a separate
/// job: it is loaded from the database before and saved afterwards, so that automatic numbers are
/// stored durably after each page. A failing step is skipped and not reported. Runs pending events
/// between pages while the station is visible.
void PrintCard(Session& session);

} // namespace vantrel
