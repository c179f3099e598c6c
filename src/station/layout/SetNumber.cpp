#include "station/layout/SetNumber.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "station/layout/PageKey.h"
#include "station/layout/StoreStatements.h"
#include "station/layout/StoredNumbers.h"
#include "station/session/Session.h"
#include "store/Recordset.h"
#include <algorithm>

namespace vantrel {

namespace {

/// Moves a cursor over the stored page to the row of a number.
/// @return false if the page has no such row
bool FindRow(Recordset& rows, const CardObject& number)
{
    for (; !rows.IsEof(); rows.MoveNext()) {
        if (number.StoreKey != 0 && rows.RowKey() == number.StoreKey && IsNumberRow(rows))
            return true;
    }
    return false;
}

void OpenPage(Session& session, Recordset& rows, CursorLock lock)
{
    const PageKey key = PageOnForm(session);
    rows.Open(ObjectsOfPage(key.LayoutName, key.Page), lock);
}

double ShownNumber(const CardObject& number)
{
    double shown = 0;
    Skip("number", [&] { shown = ToDouble(number.DataField); });
    return shown;
}

/// The last number given, of a number whose row a cursor is at.
double LastOf(const Session& session, const Recordset& row)
{
    const auto unstored = session.UnstoredNumbers.find(row.RowKey());
    const double stored = StoredNumber(row);
    return unstored == session.UnstoredNumbers.end() ? stored : std::max(stored, unstored->second);
}

/// Writes the row of a number, if it has one.
/// @return false if the number was given and may not repeat
bool StoreNext(Session& session, const CardObject& number, double next, bool mayRepeat)
{
    Recordset rows(session.LayoutDb);
    OpenPage(session, rows, CursorLock::Optimistic);
    const bool hasRow = FindRow(rows, number);
    const double last = hasRow ? LastOf(session, rows) : ShownNumber(number);
    if (next <= last && !mayRepeat)
        return false;
    if (hasRow) {
        // A number is raised before it is printed.
        rows.SetValue(QStringLiteral("C_Value"), NumberText(next - 1));
        rows.Update();
    }
    return true;
}

} // namespace

double LastNumber(Session& session, const CardObject& number)
{
    double last = ShownNumber(number);
    Skip("stored number", [&] {
        Recordset rows(session.LayoutDb);
        OpenPage(session, rows, CursorLock::ReadOnly);
        if (FindRow(rows, number))
            last = LastOf(session, rows);
    });
    return last;
}

bool SetNextNumber(Session& session, CardObject& number, double next, bool mayRepeat)
{
    Connection& store = session.LayoutDb;
    store.BeginTrans();
    try {
        if (!StoreNext(session, number, next, mayRepeat)) {
            store.RollbackTrans();
            return false;
        }
        store.CommitTrans();
    } catch (const Failure&) {
        store.RollbackTrans();
        throw;
    }
    session.UnstoredNumbers.erase(number.StoreKey);
    number.DataField = NumberText(next - 1);
    number.SetCaption(number.DataField);
    session.History.NumberWasSet(number);
    session.Document.Refresh();
    return true;
}

} // namespace vantrel
