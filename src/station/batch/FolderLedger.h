#pragma once

#include <QString>

namespace vantrel {

class Connection;

/// Opens the ledger of a program folder, which stations may write meanwhile, and ends the entries
/// of runs of rows that were killed. Fails with `FileNotFound` if the folder has no layout
/// database, with `ItemNotFound` if that has no ledger, otherwise like `StoreDatabase`.
void OpenFolderLedger(Connection& store, const QString& programFolder);

} // namespace vantrel
