#pragma once

namespace vantrel {

class Session;

/// @file Taking back what was done to the pages of the open layout, and asking before it is lost.
/// All of this does nothing without `Options.DesignTools`.

/// Notes the page as it is now: what was done to it since the last call becomes one step. To be
/// called when the operator begins something and when it is done.
void NoteDesign(Session& session);

/// Take the last step back, or take it again. If the step was made on another page, that page is
/// opened first, after `MayLeavePage`. Steps that have nothing to change are passed over.
void UndoDesign(Session& session);
void RedoDesign(Session& session);
bool CanUndoDesign(const Session& session);
bool CanRedoDesign(const Session& session);

/// The page was saved as it is. A layout that was just made is open from then on, so that its
/// records print.
void NoteSaved(Session& session);
/// Whether the page in memory has changes that are not stored. The values of records and the
/// current numbers are none.
bool IsPageUnsaved(Session& session);
/// Asks the operator whether to save the page, if it has changes that would be lost, and saves it
/// on yes. @return false if the operator cancels, or the page could not be saved
bool MayLeavePage(Session& session);
/// Asks likewise before the open layout is printed by hand, since a card shows the layout as it is
/// stored; nothing on the surface is lost.
bool MayPrintStored(Session& session);

} // namespace vantrel
