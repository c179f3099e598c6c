#pragma once

#include <QStringList>
#include <cstdint>

namespace vantrel {

class Printers;
class Session;
struct LayoutPage;
struct LayoutParamsRecord;

/// Whether the layout has any object in the database. If it has none, the name of the open layout
/// is cleared. Never fails; if the query fails, the name stays and the result is false.
bool DoesLayoutExist(Session& session, const QString& layoutName);

/// What is read of a layout when one of its pages is loaded, to be read at once.
QStringList StatementsOfPage(Session& session, const QString& layoutName, std::int16_t page);

/// Loads page `CurrentParams.PageIndex` of a layout with its objects, parameters and back image. A
/// failing step is skipped.
/// @return false, with the old objects unchanged, if the layout does not exist
bool LoadLayout(Session& session, const QString& layoutName);
/// Likewise on a page that may be behind the surface. The station's face shows only what is loaded
/// on the surface.
bool LoadLayout(Session& session, LayoutPage& page, const QString& layoutName);
/// Loads the first page of a layout. A page number left from another layout may have no parameters
/// in this one, and would be printed with the printer and the copies of the other layout.
bool LoadFirstPage(Session& session, const QString& layoutName);

/// Deletes the card content and clears the back images; the two differ only in the order.
void ClearDoc(Session& session);
void ClearDoc_Ex(Session& session);
void ClearDoc_Ex(Session& session, LayoutPage& page);

/// Sets the parameters to those of no layout: one page, one copy, the current printer.
void ResetParams(LayoutParamsRecord& params, Printers& printers);
/// Closes the layout without confirmation: resets the parameters and the caption and unloads the
/// document.
void CloseLayout(Session& session);

} // namespace vantrel
