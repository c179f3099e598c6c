#pragma once

#include "store/StoreLock.h"
#include <QString>
#include <QStringList>
#include <memory>

namespace vantrel {

class StoreDatabase;
struct StoreTable;

/// A connection to the layout database, one SQLite file in WAL mode. Every commit is durable. A
/// write waits up to five seconds for the lock of another session.
class Connection
{
public:
    Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    /// Opens an existing file and never creates one. Fails with `FileNotFound` if it does not
    /// exist, with `StatementInvalid` if it is not a database.
    void Open(const QString& path);
    /// Closes the database. An open transaction is rolled back. Does nothing on a closed
    /// connection.
    void Close();
    bool IsOpen() const;
    /// The open database, for tables that are not read by cursors. Fails with `ObjectClosed` on a
    /// closed connection.
    StoreDatabase& Database();

    /// Whether the file has a table, for tables that a layout database may lack. The answer is kept
    /// as long as nobody changes the file. Fails like `Database` and `StoreDatabase`.
    bool HasTable(const QString& table);
    /// Makes a table that a layout database may lack, unless it is there.
    void MakeTable(const StoreTable& table);

    /// Begins a transaction. The outermost one takes the lock at once; a nested one is a savepoint,
    /// whatever lock it asks for. Fails with `StoreBusy` if another session holds the lock for five
    /// seconds.
    void BeginTrans(const StoreLock& lock = StoreLock::OfStore());
    /// The same, with the lock taken by the next statement, see `StoreDatabase::BeginWithNext`.
    /// After a failure nothing more may be written before `RollbackTrans`.
    void BeginTransWithNext(const StoreLock& lock);
    /// Ends the innermost transaction. It commits durably if no transaction around it is still open
    /// in the file; transactions that were set aside are not. A transaction that was itself set
    /// aside ends without a commit. Fails with `InvalidCall` if no transaction is open.
    void CommitTrans();
    /// Rolls back the transaction that is open in the file, with all levels of it that were begun
    /// since the last one was set aside, and releases its lock. Does nothing if there is none.
    /// Never fails.
    void RollbackTrans();
    /// Rolls back the open transaction in the file and releases its lock, while this connection
    /// continues as if it were open: it is still counted, and the rows it wrote for the statements
    /// stay visible to this connection until this or another session writes those rows in the file.
    /// If SQLite has already rolled the transaction back automatically, its rows are lost. Rows of
    /// a table that only this transaction made are lost too.
    void SetAside(const QStringList& statements);
    /// Must be called before another layout or page, or an empty one, takes the place of the one
    /// that was set aside. The new one does not hold the hidden rows, so saving it must not delete
    /// them.
    void LeaveSetAside();
    /// Number of transactions that were begun and not committed. If the disk is full or fails,
    /// SQLite may have rolled them back automatically; the next `BeginTrans` then counts from 1
    /// again.
    int TransactionDepth() const;
    /// Whether SQLite has an open transaction. If it has none, each write is committed at once.
    bool InTransaction() const;

private:
    friend class ReadAhead;
    friend class Recordset;
    /// Counts a transaction that was begun, or begins a nested one.
    void CountTrans(bool isOutermost);

    struct Private;
    std::unique_ptr<Private> m_d;
};

} // namespace vantrel
