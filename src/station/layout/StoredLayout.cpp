#include "station/layout/StoredLayout.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/ObjectExtraRows.h"
#include "station/layout/StoreStatements.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "store/Recordset.h"
#include "store/StoredValue.h"

namespace vantrel {

namespace {

const QString PageColumn = QStringLiteral("Page");
const QString PageIndexColumn = QStringLiteral("PageIndex");
const QString FilterColumn = QStringLiteral("Filter");
const QString AutoSpoolColumn = QStringLiteral("AutoSpool");

/// Runs steps of which all are stored or none.
template <typename Steps>
void InTransaction(Connection& layoutDb, Steps&& steps)
{
    layoutDb.BeginTrans();
    try {
        steps();
        layoutDb.CommitTrans();
    } catch (const Failure&) {
        layoutDb.RollbackTrans();
        throw;
    }
}

/// Deletes the rows of a page and moves those of higher pages down by one.
void CloseGap(Recordset& rows, const QString& column, std::int16_t page)
{
    for (; !rows.IsEof(); rows.MoveNext()) {
        const std::int32_t at = StoredLong(rows.Value(column));
        if (at == page) {
            rows.Delete();
        } else if (at > page) {
            rows.SetValue(column, at - 1);
            rows.Update();
        }
    }
}

QVariant FilterOfFirstRow(Connection& layoutDb, const QString& layoutName)
{
    Recordset rows(layoutDb);
    rows.Open(ParamsOfLayout(layoutName));
    return rows.IsEof() ? QVariant() : rows.Value(FilterColumn);
}

void SetFilterOfFirstRow(Connection& layoutDb, const QString& layoutName, const QVariant& filter)
{
    Recordset rows(layoutDb);
    rows.Open(ParamsOfLayout(layoutName), CursorLock::Optimistic);
    if (rows.IsEof())
        return;
    rows.SetValue(FilterColumn, filter);
    rows.Update();
}

QString Counted(int count, const char* one, const char* several)
{
    return QString::number(count) + QLatin1Char(' ') +
           (count == 1 ? QLatin1StringView(one) : QLatin1StringView(several));
}

} // namespace

void RemoveStoredPage(Connection& layoutDb, const QString& layoutName, std::int16_t page)
{
    InTransaction(layoutDb, [&] {
        Recordset objects(layoutDb);
        objects.Open(ObjectsOfLayout(layoutName), CursorLock::Optimistic);
        CloseGap(objects, PageColumn, page);
        objects.Close();
        if (HasExtras(layoutDb)) {
            Recordset extras(layoutDb);
            extras.Open(ExtrasOfLayout(layoutName), CursorLock::Optimistic);
            CloseGap(extras, PageColumn, page);
        }
        const QVariant filter = FilterOfFirstRow(layoutDb, layoutName);
        const std::optional<bool> autoSpool = AutoSpoolOfLayout(layoutDb, layoutName);
        Recordset params(layoutDb);
        params.Open(ParamsOfLayout(layoutName), CursorLock::Optimistic);
        CloseGap(params, PageIndexColumn, page);
        params.Close();
        SetFilterOfFirstRow(layoutDb, layoutName, filter);
        SetAutoSpoolOfAllPages(layoutDb, layoutName, autoSpool.value_or(false));
    });
}

std::optional<bool> AutoSpoolOfLayout(Connection& layoutDb, const QString& layoutName)
{
    // Mostly the first page has a row, which its load has read before.
    Recordset rows(layoutDb);
    rows.Open(ParamsOfPage(layoutName, 1));
    if (!rows.IsEof())
        return StoredBoolean(rows.Value(AutoSpoolColumn));
    rows.Open(ParamsOfLayout(layoutName));
    std::optional<bool> answer;
    std::int32_t lowest = 0;
    for (; !rows.IsEof(); rows.MoveNext()) {
        const std::int32_t page = StoredLong(rows.Value(PageIndexColumn));
        if (answer && page >= lowest)
            continue;
        answer = StoredBoolean(rows.Value(AutoSpoolColumn));
        lowest = page;
    }
    return answer;
}

void SetAutoSpoolOfAllPages(Connection& layoutDb, const QString& layoutName, bool autoSpool)
{
    if (layoutName.isEmpty())
        return;
    InTransaction(layoutDb, [&] {
        Recordset rows(layoutDb);
        rows.Open(ParamsOfLayout(layoutName), CursorLock::Optimistic);
        for (; !rows.IsEof(); rows.MoveNext()) {
            rows.SetValue(AutoSpoolColumn, autoSpool);
            rows.Update();
        }
    });
}

QString StoredExtent(Connection& layoutDb, const QString& layoutName)
{
    int pages = 0;
    int objects = 0;
    Skip("extent of the layout", [&] {
        pages = CountLayoutPages(layoutDb, layoutName);
        Recordset rows(layoutDb);
        rows.Open(ObjectsOfLayout(layoutName));
        objects = rows.RecordCount();
    });
    if (pages == 0)
        return QStringLiteral("Nothing of it is stored yet.");
    return QStringLiteral("It has ") + Counted(pages, "page", "pages") + QStringLiteral(" with ") +
           Counted(objects, "object", "objects") + QLatin1Char('.');
}

bool MayTakeName(Session& session, const QString& layoutName)
{
    if (!session.Options.DesignTools || layoutName.isEmpty())
        return true;
    int pages = 0;
    Skip("look for layout", [&] { pages = CountLayoutPages(session.LayoutDb, layoutName); });
    if (pages == 0)
        return true;
    const QString question = QStringLiteral("There is a layout (") + layoutName +
                             QStringLiteral(") already. ") +
                             StoredExtent(session.LayoutDb, layoutName) +
                             QStringLiteral("\r\nBegin it anew, so that a save replaces its first "
                                            "page?");
    return session.Operator.ShowAppMessage(question, QStringLiteral("Replace Layout?"),
                                           AppMessageButtons::NoYes);
}

} // namespace vantrel
