#pragma once

#include <QString>

namespace vantrel {

class StoreDatabase;

/// The description of a page that was printed; empty if it is not in the ledger. Fails like
/// `StoreDatabase`.
QString PageContent(StoreDatabase& database, const QString& hash);

} // namespace vantrel
