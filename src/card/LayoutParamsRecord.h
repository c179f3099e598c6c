#pragma once

#include "card/PrinterType.h"
#include "drawing/Picture.h"
#include <QString>
#include <cstdint>

namespace vantrel {

/// How the page on the form is produced. There is one, for the page in memory.
struct LayoutParamsRecord
{
    bool LayoutOpen = false;
    QString PrinterDevice;
    /// 1 portrait, 2 landscape.
    std::int32_t PrinterOrientation = 0;
    /// A code of `PrinterTypes`.
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

/// Drops both back images of the record.
void ResetBackImages(LayoutParamsRecord& params);

} // namespace vantrel
