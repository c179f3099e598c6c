#pragma once

namespace vantrel {

class Connection;
class Session;
struct LedgerEntry;

/// Prints the cards of an entry again, as they were: each page as it was stored at that time, with
/// the values and the numbers of the first print, on the same printer. No number rises and the open
/// layout is left alone. A card that was never drawn is made as new, with numbers of its own, on
/// the page as it is now, and so are the pages and copies behind the last card of a doubtful entry.
/// The outcomes are noted for the record on its road, which must be set. A camera picture is not
/// kept, so its place stays empty.
void ReprintCards(Session& session, const LedgerEntry& first);

/// Whether a page was changed in the store since a card was printed on it. A page that is gone was
/// changed. Never fails.
bool WasChangedSince(Connection& layoutDb, const LedgerEntry& first);

} // namespace vantrel
