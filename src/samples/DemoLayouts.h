#pragma once

#include <QString>

namespace vantrel {

class Connection;

/// Names of the picture files of the sample layouts.
namespace DemoPicture {
inline constexpr const char* Front = "card-front.jpg";
inline constexpr const char* Back = "card-back.jpg";
inline constexpr const char* Portrait = "portrait.jpg";
inline constexpr const char* Badge = "badge.jpg";
inline constexpr const char* GiftFront = "gift-front.jpg";
inline constexpr const char* GiftBack = "gift-back.jpg";
inline constexpr const char* Library = "library.jpg";
inline constexpr const char* PassFront = "pass-front.jpg";
inline constexpr const char* PassBack = "pass-back.jpg";
inline constexpr const char* Transport = "transport.jpg";
} // namespace DemoPicture

/// Writes the rows of the layouts "Member Card" (two pages), "Visitor" (one page for dynamic
/// fields) and those of the gallery. `imageFolder` is the absolute path of their pictures. Fails
/// like `Recordset`.
void WriteDemoLayouts(Connection& connection, const QString& imageFolder);

} // namespace vantrel
