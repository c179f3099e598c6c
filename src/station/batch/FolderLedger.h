#pragma once

#include <QString>

namespace vantrel {

class Connection;
class Session;

/// Opens the ledger of a program folder, which stations may write meanwhile, and ends the entries
/// of runs of rows that were killed. Fails with `FileNotFound` if the folder has no layout
/// database, with `ItemNotFound` if that has no ledger, otherwise like `StoreDatabase`.
void OpenFolderLedger(Connection& store, const QString& programFolder);

/// Opens the ledger for a run of rows, if the folder keeps one. A run has a number of its own, so
/// it does not claim that of its session, as `OpenLedger` does for a station: in a store on a
/// server a station may have it, and a run must not count as one. A ledger that cannot be opened is
/// told, and is tried again with the first rows.
void OpenLedgerOfRun(Session& session);

} // namespace vantrel
