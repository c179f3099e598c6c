#pragma once

#include <QStringList>

namespace vantrel {

class Connection;
class Session;

/// @file How the operator moves between the pages of a layout and between layouts.

/// Loads the next page of the open layout, where there is one, and pours the last record into it.
void NextPage(Session& session);
/// Loads the page before, where there is one, and pours the last record into it.
void PreviousPage(Session& session);

/// The layouts that have at least one object stored, by name. Fails like `Recordset`.
QStringList LayoutNames(Connection& layoutDb);
/// Opens a layout at its first page and shows the document; also where the layout is gone
/// meanwhile, which leaves the old objects and an empty name.
void OpenLayout(Session& session, const QString& layoutName);

} // namespace vantrel
