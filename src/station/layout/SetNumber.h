#pragma once

namespace vantrel {

class CardObject;
class Session;

/// The last number that an automatic number of the open page has given: that of its row in the
/// store, or the object's own where it has none.
double LastNumber(Session& session, const CardObject& number);

/// Makes `next` the number that the next card gets, in the row of the number and on the page. The
/// row is written in one transaction that no other session can come between, and is on the disk at
/// the return. A number without a row is set on the page only, and stored with it.
/// @param mayRepeat  whether the number may be one that was given already
/// @return false, with nothing changed, if it was given and may not repeat. Fails like `Recordset`,
/// with nothing changed.
bool SetNextNumber(Session& session, CardObject& number, double next, bool mayRepeat);

} // namespace vantrel
