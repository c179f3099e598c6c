#include "station/batch/FolderLedger.h"
#include "base/Failure.h"
#include "ledger/LedgerTables.h"
#include "station/batch/RunLock.h"
#include "station/session/StoreLocation.h"
#include "store/Connection.h"

namespace vantrel {

void OpenFolderLedger(Connection& store, const QString& programFolder)
{
    store.Open(StoreLocation(programFolder));
    if (!HasLedger(store.Database()))
        throw Failure(FailureNumber::ItemNotFound,
                      QStringLiteral("There is no ledger in %1. A station makes one when it "
                                     "starts with Ledger=True in the section [Station] of "
                                     "its settings.")
                          .arg(programFolder));
    EndDeadRuns(programFolder, store.Database());
}

} // namespace vantrel
