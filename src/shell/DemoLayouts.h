#pragma once

#include <QString>

namespace vantrel {

class Connection;

/// Names of the picture files that the demonstration layouts show.
namespace DemoPicture {
inline constexpr const char* Front = "card-front.jpg";
inline constexpr const char* Back = "card-back.jpg";
inline constexpr const char* Portrait = "portrait.jpg";
} // namespace DemoPicture

/// Writes the rows of the layouts "Member Card", two pages, and "Visitor", one page for dynamic
/// fields. Fails like `Recordset`.
void WriteDemoLayouts(Connection& connection, const QString& imageFolder);

} // namespace vantrel
