#pragma once

namespace vantrel {

class Session;

/// @file Entries of the ledger that this session carries out: records that were received before the
/// station was killed, and cards that are to be printed again.

/// Makes doubtful what was being printed when the session ended without an orderly end. Called once
/// at the start, before anything is printed. Never fails.
void FindDoubtfulCards(Session& session);

/// Carries out the entries of this session that are received and on no road, in their order; a
/// member of a pool that prints, those of the pool for whose cards it has the printers. Does
/// nothing while a record is on its road. Never fails.
void TakeStoredRecords(Session& session);

/// Looks after the ledger from now on: carries out entries that are added to it within half a
/// second, or two on a server, gives back to the pool what ended stations have claimed, writes what
/// could not be written, and removes old entries a few at a time. Does nothing if no ledger is
/// kept.
void TendLedger(Session& session);

} // namespace vantrel
