#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Whether any object of that layout is stored. Where none is, the open layout's name is emptied.
/// Never fails; a failing query leaves the name and says no.
bool DoesLayoutExist(Session& session, const QString& layoutName);

/// Rebuilds the document from the rows of the page that `CurrentParams` points at, with the page's
/// parameters and back image. A failing step is passed over.
/// @return false, with the old objects in place, where no such layout exists
bool LoadLayout(Session& session, const QString& layoutName);
/// The same with the layout's first page. A page left over from another layout may have no
/// parameters in this one: it would go by the printer and the copies of that other layout.
bool LoadFirstPage(Session& session, const QString& layoutName);

/// Empties the form and resets the back images; the two differ in the order of that only.
void ClearDoc(Session& session);
void ClearDoc_Ex(Session& session);

/// Ends the layout: parameters to their defaults, caption plain, document unloaded. Does not ask.
void CloseLayout(Session& session);

} // namespace vantrel
