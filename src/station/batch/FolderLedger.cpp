#include "station/batch/FolderLedger.h"
#include "base/Failure.h"
#include "base/SecretKey.h"
#include "base/Skip.h"
#include "ledger/LedgerTables.h"
#include "station/batch/RunLock.h"
#include "station/ledger/StationLedger.h"
#include "station/session/Session.h"
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

void OpenLedgerOfRun(Session& session)
{
    const StationOptions& options = session.Options;
    if (!options.Ledger)
        return;
    Skip("open ledger", [&] {
        LedgerTerms terms{.On = true, .KeepValues = options.LedgerValues, .HashKey = {}};
        if (!terms.KeepValues)
            terms.HashKey = SecretKeyOf(session.PathInFolder(QStringLiteral("Ledger.key")));
        session.Ledger.Open(session.LayoutDb, terms);
    });
    TellLedgerState(session);
}

} // namespace vantrel
