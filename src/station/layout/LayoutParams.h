#pragma once

#include <cstdint>

namespace vantrel {

class Connection;
struct LayoutParamsRecord;
class Session;

/// Reads the parameters of the page `CurrentParams` points at, counts the pages and makes the
/// page's printer current. A failing step is passed over: a page without a row inherits what the
/// record held.
void LoadLayoutParams(Session& session);
/// Writes the parameters to the page's row, making it if it is missing; without an open layout
/// there is no page, and nothing is written. Fails like `Recordset`.
void SaveLayoutParams(Connection& layoutDb, const QString& layoutName,
                      const LayoutParamsRecord& params);
/// How many pages of the open layout exist in the store. Fails like `Recordset`.
std::int16_t CountLayoutPages(Connection& layoutDb, const QString& layoutName);
} // namespace vantrel
