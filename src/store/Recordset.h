#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>
#include <memory>

namespace vantrel {

class Connection;

/// Whether a cursor may change rows.
enum class CursorLock { ReadOnly, Optimistic };

/// A cursor over the rows of one SELECT on one table. Rows are in the order of insertion unless the
/// statement sorts; those of DISTINCT are in the order of their values. Rows are changed only
/// through the cursor, each by its hidden key. An operation fails with `ObjectClosed` on a cursor
/// that is not open, with `NoCurrentRecord` if it needs a row and there is none, with
/// `ItemNotFound` for an unknown column, with `StatementInvalid` for an unsupported statement and
/// with `StoreBusy` if another session holds the lock for five seconds.
class Recordset
{
public:
    /// @param connection  must outlive the cursor
    explicit Recordset(Connection& connection);
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    ~Recordset();

    /// Runs the statement and moves to its first row. A cursor that was open is closed first.
    void Open(const QString& statement, CursorLock lock = CursorLock::ReadOnly);
    void Close();
    bool IsOpen() const;

    /// Both are true on a cursor without rows.
    bool IsEof() const;
    bool IsBof() const;
    /// Number of rows of the result, including added ones and without deleted ones.
    int RecordCount() const;
    /// Moves to the next row, or past the last one. Values that were set and not updated are
    /// dropped.
    void MoveNext();

    /// @return the value in the current row; a null is a null `QVariant`
    QVariant Value(const QString& column) const;
    /// Names of the columns of the result, and the values of the current row in the same order.
    /// Columns of a row that is being added or changed have their stored values.
    QStringList Columns() const;
    QVariantList Values() const;
    /// The hidden key of the current row, which stays the same as long as the row exists.
    qlonglong RowKey() const;
    /// Sets a value in the row being added or changed; a null `QVariant` writes a null. This and
    /// all functions below fail with `InvalidCall` on a read-only cursor.
    void SetValue(const QString& column, const QVariant& value);
    /// Begins a new row, all null; `Update` writes it.
    void AddNew();
    /// Sets all columns of the current row to null; `Update` writes it. The row keeps its key and
    /// so its position.
    void ClearRow();
    /// Writes the row being added or changed; an added row becomes the current one. Values that are
    /// equal to the stored ones are not written, so an unchanged row needs no commit. Fails with
    /// `NoCurrentRecord` if the row has been deleted in the meantime.
    void Update();
    /// Writes the row being added only if the cursor's statement still finds no row, as one atomic
    /// step. Fails like `Update`.
    /// @return false, with nothing written, if the statement finds a row
    bool UpdateUnlessFound();
    /// Deletes the current row; the cursor stays at its position until `MoveNext`. Fails like
    /// `Update`.
    void Delete();

private:
    struct Private;
    std::unique_ptr<Private> m_d;
};

} // namespace vantrel
