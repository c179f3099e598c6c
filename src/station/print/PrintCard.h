#pragma once

#include <cstdint>

namespace vantrel {

class Session;
struct LayoutPage;

/// Prints the layout that is open on a page with the values of the last record. Each page of each
/// copy is a separate job: it is loaded from the database before and saved afterwards, so that
/// automatic numbers are stored durably after each page. A failing step is skipped and not
/// reported. Runs pending events between pages while the station is visible. A page that is gone
/// meanwhile is not printed; behind the surface the account of the record tells it.
void PrintCard(Session& session, LayoutPage& page);
/// Likewise on the surface, as records print that share it.
void PrintCard(Session& session);

/// Prints the pages behind one of a copy of the layout, and the copies behind that one, like
/// `PrintCard`. For a record on its road.
void PrintFurther(Session& session, LayoutPage& on, int copy, std::int16_t page);

/// Prints one page of the layout once, like `PrintCard`, as the copy that the record on its
/// road names. Must not be called for a page that the layout has not.
void PrintOnePage(Session& session, LayoutPage& on, std::int16_t page);

} // namespace vantrel
