#include "station/layout/SaveLayout.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/ObjectExtraRows.h"
#include "station/layout/ObjectToRow.h"
#include "station/layout/PageKey.h"
#include "station/layout/Pages.h"
#include "station/layout/SaveStep.h"
#include "station/layout/StoreStatements.h"
#include "station/layout/StoredNumbers.h"
#include "station/session/MainRuntime.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include <QScopeGuard>
#include <algorithm>

namespace vantrel {

namespace {

void DeleteRest(Recordset& rows)
{
    for (; !rows.IsEof(); rows.MoveNext())
        SaveStep("delete row", [&] { rows.Delete(); });
}

/// Calls a step with the document and a cursor over the page as it is stored.
template <typename Step>
void OnStoredPage(Session& session, const PageKey& key, Step&& step)
{
    Recordset rows(session.LayoutDb);
    rows.Open(ObjectsOfPage(key.LayoutName, key.Page));
    step(session.Document, rows);
}

/// Replaces the page's rows by the objects in memory. Existing rows are overwritten instead of
/// being deleted and added again, so that unchanged rows are not written. Mostly only an automatic
/// number has changed.
/// @return how many objects are card content
int ReplaceRows(Session& session)
{
    // What records have printed since the page was loaded is never given again.
    const bool keepsNumbers = session.Options.UniqueNumbers || session.Options.DesignTools;
    const PageKey key = PageOnForm(session);
    Recordset rows(session.LayoutDb);
    SaveStep("open page",
             [&] { rows.Open(ObjectsOfPage(key.LayoutName, key.Page), CursorLock::Optimistic); });
    if (keepsNumbers)
        SaveStep("keep numbers", [&] {
            OnStoredPage(session, key, KeepHigherNumbers);
            KeepNumbers(session.Document, session.UnstoredNumbers);
        });
    // After a failure the rows written so far stay, and the remaining old rows are deleted. This
    // must not happen if SQLite has rolled back the transaction, because each deletion would then
    // be committed at once.
    auto deleteRest = qScopeGuard([&] {
        if (session.LayoutDb.InTransaction())
            Skip("delete old rows", [&] { DeleteRest(rows); });
    });
    int counter = 0;
    for (const auto& object : session.Document.Objects()) {
        if (!object->IsContent())
            continue;
        ++counter;
        ObjectToRow(*object, key, session.Pictures, rows);
    }
    deleteRest.dismiss();
    DeleteRest(rows);
    SaveStep("extras", [&] { SaveExtras(session.LayoutDb, key, session.Document); });
    if (keepsNumbers)
        SaveStep("note rows", [&] { OnStoredPage(session, key, NoteNumberRows); });
    return counter;
}

/// @return how many objects are card content
int StorePage(Session& session)
{
    EnsureDocument(session);
    SaveStep("save parameters", [&] {
        SaveLayoutParams(session.LayoutDb, session.CurrentLayoutName, session.CurrentParams);
    });
    SaveStep("begin transaction", [&] { session.LayoutDb.BeginTrans(); });
    const int counter = ReplaceRows(session);
    SaveStep("commit", [&] { session.LayoutDb.CommitTrans(); });
    LoadLayoutParams(session);
    return counter;
}

/// For this session the transaction stays open, and the next save starts inside it. Other sessions
/// see the page unchanged and do not have to wait while the message box is open.
void SetAside(Session& session)
{
    // Records print from the store, and what could not be saved stays on the surface.
    if (session.Options.DesignTools) {
        session.LayoutDb.RollbackTrans();
        return;
    }
    const PageKey key = PageOnForm(session);
    Skip("set aside", [&] {
        QStringList statements{ObjectsOfPage(key.LayoutName, key.Page)};
        if (HasExtras(session.LayoutDb))
            statements.append(ExtrasOfPage(key.LayoutName, key.Page));
        session.LayoutDb.SetAside(statements);
    });
}

void TellEmptyPage(Operator& stationOperator)
{
    stationOperator.ShowAppMessage(QStringLiteral("You must have at least one object on a page!"),
                                   QStringLiteral("No objects found"), AppMessageButtons::OkOnly);
}

bool IsEmptyPage(const CardDocument& document)
{
    return std::ranges::none_of(document.Objects(),
                                [](const auto& object) { return object->IsContent(); });
}

/// A page that was saved without objects no longer exists, so the previous page is shown.
void LeaveEmptyPage(Session& session)
{
    LayoutParamsRecord& params = session.CurrentParams;
    params.PageIndex = static_cast<std::int16_t>(params.PageIndex - 1);
    LoadLayout(session, session.CurrentLayoutName);
    RefreshData(session.Face, session.CurrentLayoutName, session.CurrentParams);
    TellEmptyPage(session.Operator);
}

/// The numbers of a document are in the store now.
void ForgetUnstored(Session& session, const CardDocument& document)
{
    if (session.UnstoredNumbers.empty())
        return;
    for (const CardObject* number : NumbersOn(document))
        session.UnstoredNumbers.erase(number->StoreKey);
}

/// A layout that was just made prints from now on, without being opened, and the caption says so.
void CaptionSaved(Session& session)
{
    const auto captioned = [&](const QString& caption) {
        return CaptionWithLayout(session.CurrentLayoutName, session.CurrentParams, caption);
    };
    if (!session.Face.Caption().endsWith(captioned({})))
        session.Face.SetCaption(captioned(PlainCaption()));
}

void TellFailure(Operator& stationOperator, const Failure& failure)
{
    stationOperator.MessageBox(failure.Text(), QString::number(failure.Number()),
                               BoxIcon::Critical);
}

void ReportSaved(Session& session)
{
    session.Operator.ShowAppMessage(QStringLiteral("Document ( ") + session.CurrentLayoutName +
                                        QStringLiteral(" ) Sucessfully Saved."),
                                    QStringLiteral("Document Saved."), AppMessageButtons::OkOnly);
}

} // namespace

bool SaveLayout(Session& session, SaveMessages messages)
{
    if (session.CurrentLayoutName.isEmpty())
        return false;
    // The page stays on the surface, and only a command that says so deletes what is stored of it.
    if (session.Options.DesignTools && IsEmptyPage(session.Document)) {
        TellEmptyPage(session.Operator);
        return false;
    }
    int counter = 0;
    try {
        counter = StorePage(session);
    } catch (const Failure& failure) {
        SetAside(session);
        TellFailure(session.Operator, failure);
        return false;
    }
    if (counter < 1) {
        LeaveEmptyPage(session);
        return false;
    }
    ForgetUnstored(session, session.Document);
    NoteSaved(session);
    if (session.Options.DesignTools)
        CaptionSaved(session);
    if (messages == SaveMessages::Shown)
        ReportSaved(session);
    return true;
}

void SaveNumbers(Session& session, const LayoutPage& page)
{
    const std::vector<CardObject*> numbers = NumbersOn(page.Document);
    if (numbers.empty())
        return;
    Connection& store = session.LayoutDb;
    try {
        store.BeginTrans();
        Recordset rows(store);
        rows.Open(ObjectsOfPage(page.LayoutName, page.Params.PageIndex), CursorLock::Optimistic);
        StoreHigherNumbers(page.Document, rows);
        store.CommitTrans();
        ForgetUnstored(session, page.Document);
    } catch (const Failure& failure) {
        store.RollbackTrans();
        for (const CardObject* number : numbers)
            Skip("number",
                 [&] { session.UnstoredNumbers[number->StoreKey] = ToDouble(number->DataField); });
        TellFailure(session.Operator, failure);
    }
}

} // namespace vantrel
