#pragma once

#include <QString>
#include <QVariant>
#include <memory>

namespace vantrel {

class Connection;

/// Whether a cursor may change rows.
enum class CursorLock { ReadOnly, Optimistic };

/// A cursor over the rows of one SELECT on one table, in the order of insertion unless the
/// statement sorts; DISTINCT comes in name order. Rows are changed through the cursor only, each by
/// its hidden key. Any operation on a cursor that is not open fails with `ObjectClosed`, one that
/// needs a row where there is none with `NoCurrentRecord`, an unknown column with `ItemNotFound`, a
/// statement the store does not take with `StatementInvalid`, a lock that stays with `StoreBusy`.
class Recordset
{
public:
    explicit Recordset(Connection& connection);
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    ~Recordset();

    /// Runs the statement and stands on its first row. A cursor that was open is closed first.
    void Open(const QString& statement, CursorLock lock = CursorLock::ReadOnly);
    void Close();
    bool IsOpen() const;

    /// Both are true on a cursor without rows.
    bool IsEof() const;
    bool IsBof() const;
    int RecordCount() const;
    /// Goes on to the next row, or behind the last. What was set and not updated is dropped.
    void MoveNext();

    /// @return the value in the current row, a null `QVariant` for a null
    QVariant Value(const QString& column) const;
    /// Sets a value in the row being added or changed; a null `QVariant` writes a null. This and
    /// all below fail with `InvalidCall` on a cursor that is read only.
    void SetValue(const QString& column, const QVariant& value);
    /// Begins a new row, all null; `Update` writes it.
    void AddNew();
    /// Begins the current row as if it were a new one, all null, but with the place it has.
    void BeginAnew();
    /// Writes the row being added or changed; a row that was added becomes the current one. Values
    /// that are what the store holds are not written again, so an unchanged row costs no commit.
    /// Fails with `NoCurrentRecord` where the row has been deleted meanwhile.
    void Update();
    /// Writes the row being added only where the cursor's statement still finds none, in one step
    /// that no other session can come between. Fails like `Update`.
    /// @return false, with nothing written, where the statement finds a row by now
    bool UpdateUnlessFound();
    /// Deletes the current row; the cursor stays on its place until `MoveNext`. Fails like
    /// `Update`.
    void Delete();

private:
    struct Private;
    std::unique_ptr<Private> m_d;
};

} // namespace vantrel
