#include "ledger/LedgerPages.h"
#include "store/StoreDatabase.h"

namespace vantrel {

QString PageContent(StoreDatabase& database, const QString& hash)
{
    QString content;
    database.Select(QStringLiteral("SELECT Content FROM LedgerPages WHERE Hash = ?"), {hash},
                    [&](const StoreRow& row) { content = row.Value(0).toString(); });
    return content;
}

} // namespace vantrel
