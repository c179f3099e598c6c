#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace vantrel {

class Connection;
class Session;

/// @file A layout as the store holds it, with all its pages. The routines on the store fail like
/// `Recordset`.

/// Removes a page with its parameters from one layout; the pages above it move down. The filter of
/// the layout's output stream and its automatic printing, which stand with its first page, stay.
/// Nothing changes if a step fails.
void RemoveStoredPage(Connection& layoutDb, const QString& layoutName, std::int16_t page);

/// Whether records print the layout without being asked: what its first page says, or the lowest
/// that has parameters. @return nothing for a layout without any
std::optional<bool> AutoSpoolOfLayout(Connection& layoutDb, const QString& layoutName);
/// Sets it for all pages that have parameters, so that every page gives the same answer.
void SetAutoSpoolOfAllPages(Connection& layoutDb, const QString& layoutName, bool autoSpool);

/// What is stored of a layout, such as "It has 2 pages with 9 objects." Never fails.
QString StoredExtent(Connection& layoutDb, const QString& layoutName);

/// With `Options.DesignTools`, asks before a new layout takes a name that another one has, because
/// its save would replace the other one's first page. @return whether the name may be taken
bool MayTakeName(Session& session, const QString& layoutName);

} // namespace vantrel
