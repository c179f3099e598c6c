#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

/// The result of the padding dialog.
struct PadResult
{
    QString PadChars;
    /// Final length in characters.
    std::int16_t PadLen = 0;
    /// 0 left, 1 right.
    std::int32_t PadDirection = 0;
    /// Number of the data field. It is kept between dialogs until another one is chosen.
    std::int16_t PadField = 0;
};

} // namespace vantrel
