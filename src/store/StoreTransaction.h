#pragma once

#include "store/StoreDatabase.h"

namespace vantrel {

/// A transaction that holds the write lock and is rolled back when its scope ends without a commit.
/// No transaction may be open before.
class StoreTransaction
{
public:
    /// Fails with `StoreBusy` if another session holds the lock for five seconds, with
    /// `InvalidCall` within a transaction.
    explicit StoreTransaction(StoreDatabase& database);
    StoreTransaction(const StoreTransaction&) = delete;
    StoreTransaction& operator=(const StoreTransaction&) = delete;
    ~StoreTransaction();

    /// Ends the transaction durably. Fails like `StoreDatabase`.
    void Commit();

private:
    StoreDatabase& m_database;
};

} // namespace vantrel
