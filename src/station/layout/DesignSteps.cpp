#include "station/layout/DesignSteps.h"
#include "base/NumberFormat.h"
#include "base/Skip.h"
#include "card/PourValues.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/PageKey.h"
#include "station/layout/Pages.h"
#include "station/layout/SaveLayout.h"
#include "station/layout/StoreStatements.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "store/Recordset.h"

namespace vantrel {

namespace {

bool IsAtWork(const Session& session)
{
    return session.Options.DesignTools && session.Document.IsLoaded() &&
           session.Document.Drag.Mode == DragMode::None;
}

/// Opens a page of the open layout. A page that is not stored is empty.
void TurnTo(Session& session, std::int16_t page)
{
    const QString layoutName = session.CurrentLayoutName;
    session.CurrentParams.PageIndex = page;
    if (!LoadLayout(session, layoutName)) {
        // Nothing of the layout is stored; the look for it has cleared its name.
        session.CurrentLayoutName = layoutName;
        ClearDoc_Ex(session);
        session.History.PageWasLoaded();
    }
    RefreshData(session.Face, session.CurrentLayoutName, session.CurrentParams);
    FillSurface(session);
    NoteDesign(session);
}

bool SamePrinter(const ParamsDesign& one, const ParamsDesign& other)
{
    return one.PrinterDevice == other.PrinterDevice &&
           one.PrinterOrientation == other.PrinterOrientation &&
           one.PrinterType == other.PrinterType;
}

void Put(Session& session, const PageDesign& design)
{
    CardDocument& document = session.Document;
    const ParamsDesign before = DesignOf(session.CurrentParams);
    const Picture& camera =
        session.CameraImage.HasHandle() ? session.CameraImage : CameraPlaceholder();
    if (PutObjects(document, design, session.History.Numbers(), camera))
        FillDataFields(document, session.FieldValues, MachineDecimalSeparator());
    PutParams(document, session.CurrentParams, design);
    if (!SamePrinter(before, design.Params)) {
        SelectPagePrinter(session, session.Surface);
        document.Width = design.Width;
        document.Height = design.Height;
    }
    document.Refresh();
}

/// Opens the page of the next step, if it is another one. While the operator is asked, steps may be
/// noted, so the caller looks for the step again.
bool OpenPageOf(Session& session, const DesignStep& step)
{
    const std::int16_t page = step.Page;
    if (page == session.CurrentParams.PageIndex)
        return true;
    if (!MayLeavePage(session))
        return false;
    TurnTo(session, page);
    return IsAtWork(session) && session.CurrentParams.PageIndex == page;
}

void Step(Session& session, StepDirection direction)
{
    if (!IsAtWork(session))
        return;
    NoteDesign(session);
    DesignHistory& history = session.History;
    while (const DesignStep* found = history.Next(direction)) {
        if (!OpenPageOf(session, *found))
            break;
        found = history.Next(direction);
        if (found == nullptr || found->Page != session.CurrentParams.PageIndex)
            break;
        const DesignStep step = *found;
        history.Pass(direction);
        const PageDesign& aim = DesignHistory::Aim(step, direction);
        if (HasDesign(session.Document, session.CurrentParams, aim))
            continue;
        Put(session, aim);
        break;
    }
    session.Face.NotifyDesign();
}

/// Whether parameters of the page differ from the stored ones. They are often stored at once.
bool AreParamsUnsaved(Session& session)
{
    bool differ = false;
    Skip("stored parameters", [&] {
        const PageKey key = PageOnForm(session);
        Recordset row(session.LayoutDb);
        row.Open(ParamsOfPage(key.LayoutName, key.Page));
        if (row.IsEof())
            return;
        LayoutParamsRecord stored = session.CurrentParams;
        stored.BackImg1Path.clear();
        ReadParams(stored, ReaderOf(row));
        differ = DesignOf(stored) != DesignOf(session.CurrentParams);
    });
    return differ;
}

/// Asks whether the page is to be saved, if it has changes.
/// @return false if the operator cancels, or the page could not be saved
bool IsSavedOrNot(Session& session, const QString& question)
{
    if (!IsPageUnsaved(session))
        return true;
    const PageKey asked = PageOnForm(session);
    const QString changed = QStringLiteral("Page %1 of the layout (").arg(asked.Page) +
                            asked.LayoutName +
                            QStringLiteral(") has changes that are not saved. ") + question;
    const BoxAnswer answer =
        session.Operator.AskYesNoCancel(changed, QStringLiteral("Save Changes?"));
    // Another page may have been opened while the question was open.
    if (answer == BoxAnswer::Cancel || !(PageOnForm(session) == asked))
        return false;
    return answer == BoxAnswer::No || SaveLayout(session, SaveMessages::Silent);
}

} // namespace

void NoteDesign(Session& session)
{
    if (!session.Options.DesignTools)
        return;
    if (!session.Document.IsLoaded()) {
        session.History.Clear();
        return;
    }
    if (session.Document.Drag.Mode == DragMode::None &&
        session.History.Note(session.CurrentLayoutName, session.Document, session.CurrentParams))
        session.Face.NotifyDesign();
}

void UndoDesign(Session& session)
{
    Step(session, StepDirection::Back);
}

void RedoDesign(Session& session)
{
    Step(session, StepDirection::Forward);
}

bool CanUndoDesign(const Session& session)
{
    return session.Options.DesignTools && session.History.Next(StepDirection::Back) != nullptr;
}

bool CanRedoDesign(const Session& session)
{
    return session.Options.DesignTools && session.History.Next(StepDirection::Forward) != nullptr;
}

void NoteSaved(Session& session)
{
    if (!session.Options.DesignTools)
        return;
    // A layout that was just made prints its records from its first save on.
    session.CurrentParams.LayoutOpen = true;
    if (!IsAtWork(session))
        return;
    NoteDesign(session);
    session.History.PageWasSaved(session.CurrentParams.PageIndex);
}

bool IsPageUnsaved(Session& session)
{
    if (!IsAtWork(session) || session.CurrentLayoutName.isEmpty())
        return false;
    NoteDesign(session);
    return session.History.IsChanged(session.CurrentParams.PageIndex) || AreParamsUnsaved(session);
}

bool MayLeavePage(Session& session)
{
    return IsSavedOrNot(session, QStringLiteral("Save them now?"));
}

bool MayPrintStored(Session& session)
{
    return IsSavedOrNot(session, QStringLiteral("A card is printed as its layout was saved. Save "
                                                "them before?"));
}

} // namespace vantrel
