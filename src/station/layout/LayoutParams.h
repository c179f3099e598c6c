#pragma once

#include "store/ColumnReader.h"
#include <cstdint>

namespace vantrel {

class Connection;
struct LayoutPage;
struct LayoutParamsRecord;
class Session;

/// Reads the parameters of page `Params.PageIndex`, counts the pages and makes the page's printer
/// current. A failing step is skipped; a page without a row inherits the parameters in memory.
void LoadLayoutParams(Session& session, LayoutPage& page);
/// Likewise for the surface.
void LoadLayoutParams(Session& session);
/// Makes the page's printer current, with the page's orientation, and gives the form its size. If
/// no printer has its name, the current one stays. A failing step is skipped.
void SelectPagePrinter(Session& session, LayoutPage& page);
/// Takes the parameters of a row of `LayoutParams`, but not whether it prints automatically. A
/// value that cannot be read leaves its parameter unchanged. Never fails.
void ReadParams(LayoutParamsRecord& params, const ColumnReader& row);
/// Writes the parameters to the page's row and adds the row if it is missing. Writes nothing
/// without an open layout. Fails like `Recordset`.
void SaveLayoutParams(Connection& layoutDb, const QString& layoutName,
                      const LayoutParamsRecord& params);
/// Number of pages of a layout in the database. Fails like `Recordset`.
std::int16_t CountLayoutPages(Connection& layoutDb, const QString& layoutName);
} // namespace vantrel
