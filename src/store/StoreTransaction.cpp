#include "store/StoreTransaction.h"
#include "base/Failure.h"
#include "base/Skip.h"

namespace vantrel {

StoreTransaction::StoreTransaction(StoreDatabase& database) : m_database(database)
{
    if (!m_database.Begin())
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("A transaction is open."));
}

StoreTransaction::~StoreTransaction()
{
    // SQLite rolls back by itself where the disk is full.
    if (m_database.InTransaction())
        Skip("roll back", [&] { m_database.Rollback(); });
}

void StoreTransaction::Commit()
{
    m_database.Commit();
}

} // namespace vantrel
