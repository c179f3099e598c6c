#pragma once

#include <QString>
#include <memory>

namespace vantrel {

/// The open layout database: one SQLite file. WAL, full durability at every commit, and five
/// seconds of waiting for another session's lock.
class Connection
{
public:
    Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    /// Opens an existing file; never creates one. Fails with `FileNotFound`, or with
    /// `StatementInvalid` where the file is no database.
    void Open(const QString& path);
    void Close();
    bool IsOpen() const;

    /// Begins a transaction: the outermost takes the write lock at once, one inside another is a
    /// savepoint. Fails with `StoreBusy` where another session holds the lock for five seconds.
    void BeginTrans();
    /// Commits the innermost transaction: durably where all around it were set aside. One that was
    /// set aside itself only ends. Fails with `InvalidCall` where there is none.
    void CommitTrans();
    /// Takes back on the file what the open transaction has written and gives its lock back, while
    /// this connection goes on as if the transaction were open: it is still counted, and its rows
    /// of that statement are seen here, until another session or this one writes those of the
    /// file. Where the store has rolled back by itself nothing is left to be seen.
    void SetAside(const QString& statement);
    /// How many transactions were begun and not committed. Where the disk is full or fails, the
    /// store may have rolled them back by itself; the next `BeginTrans` then counts from 1 again.
    int TransactionDepth() const;
    /// Whether the store holds a transaction open at this moment. What is written while it holds
    /// none is committed at once.
    bool InTransaction() const;

private:
    friend class Recordset;
    struct Private;
    std::unique_ptr<Private> m_d;
};

} // namespace vantrel
