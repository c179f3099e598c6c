#pragma once

#include <QString>

namespace vantrel {

class StoreDatabase;

/// Whether the ledger has the description of a page. Fails like `StoreDatabase`.
bool HasPage(StoreDatabase& database, const QString& hash);

/// The description of a page that was printed; empty if it is not in the ledger. Fails like
/// `StoreDatabase`.
QString PageContent(StoreDatabase& database, const QString& hash);

} // namespace vantrel
