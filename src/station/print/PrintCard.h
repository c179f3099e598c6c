#pragma once

namespace vantrel {

class Session;

/// Prints the open layout with the values of the last record: each page of each copy is a job of
/// its own, reloaded from the store before and saved after, so that numbers rise durably page by
/// page. A failing step is passed over; nothing is reported. Lets pending events run between pages
/// while the station is visible.
void PrintCard(Session& session);

} // namespace vantrel
