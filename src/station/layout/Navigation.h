#pragma once

#include <QStringList>
#include <cstdint>

namespace vantrel {

class Connection;
class Session;

/// @file Moving between the pages of a layout and between layouts.

/// Loads the next page of the open layout, if there is one, and fills the last record into it.
void NextPage(Session& session);
/// Loads the previous page, if there is one, and fills the last record into it.
void PreviousPage(Session& session);

/// Opens a page of the open layout, if another one is open, after `MayLeavePage`, and fills the
/// last record into it.
/// @return false if the operator stays, or there is no such page
bool GoToPage(Session& session, std::int16_t page);

/// Names of the layouts that have at least one stored object, sorted. Fails like `Recordset`.
QStringList LayoutNames(Connection& layoutDb);
/// Opens a layout at its first page and shows the document. If the layout no longer exists, the
/// document shows the old objects and no layout is open.
void OpenLayout(Session& session, const QString& layoutName);

} // namespace vantrel
