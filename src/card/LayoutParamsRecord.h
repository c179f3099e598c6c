#pragma once

#include "card/PrinterType.h"
#include "drawing/Picture.h"
#include <QString>
#include <cstdint>

namespace vantrel {

/// The layout parameters of the page in memory: how it is printed.
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
    /// Part of the stored format only; it is always empty.
    Picture BackImg2Picture;
    QString BackImg2Path;
    /// Characters removed from values in a serialized output.
    QString Filter;
    /// Number of the page in memory, from 1.
    std::int16_t PageIndex = 1;
    std::int16_t PageCount = 1;
    bool AutoSpool = false;
};

/// Clears both back images.
void ResetBackImages(LayoutParamsRecord& params);

} // namespace vantrel
