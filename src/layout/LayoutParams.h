#pragma once

#include "platform/Picture.h"
#include <QString>
#include <cstdint>

namespace vantrel {

class Session;

/// Codes of `PrinterType` that the station branches on.
namespace PrinterTypeCode {
inline constexpr std::int32_t Fargo = 1;
inline constexpr std::int32_t Eltron = 2;
inline constexpr std::int32_t Serialized = 3;
inline constexpr std::int32_t FontLongNames = 4;
inline constexpr std::int32_t FontShortNames = 5;
inline constexpr std::int32_t Plain = 9;
inline constexpr std::int32_t PlainFixedSize = 10;
inline constexpr std::int32_t Nisca = 11;
} // namespace PrinterTypeCode

/// How the page on the form is produced. There is one, for the page in memory.
struct LayoutParamsRecord
{
    bool LayoutOpen = false;
    QString PrinterDevice;
    /// 1 portrait, 2 landscape.
    std::int32_t PrinterOrientation = 0;
    std::int32_t PrinterType = 0;
    std::int16_t PrinterCopies = 0;
    bool Encode = false;
    QString Track1;
    QString Track2;
    QString Track3;
    Picture BackImg1Picture;
    QString BackImg1Path;
    /// Kept for the format's sake; every routine empties it.
    Picture BackImg2Picture;
    QString BackImg2Path;
    /// Characters removed from values in a serialized output.
    QString Filter;
    /// Page on the form, from 1.
    std::int16_t PageIndex = 1;
    std::int16_t PageCount = 1;
    bool AutoSpool = false;
};

/// Reads the parameters of the page `CurrentParams` points at, counts the pages and makes the
/// page's printer current. A failing step is passed over: a page without a row inherits what the
/// record held.
void LoadLayoutParams(Session& session);
/// Writes the parameters to the page's row, making it if it is missing; without an open layout
/// there is no page, and nothing is written. Fails like `Recordset`.
void SaveLayoutParams(Session& session);
/// How many pages of the open layout exist in the store. Fails like `Recordset`.
std::int16_t CountLayoutPages(Session& session);
/// Drops both back images of the record.
void ResetBackImages(LayoutParamsRecord& params);

} // namespace vantrel
