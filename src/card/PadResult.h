#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

/// What the padding dialog leaves behind for whoever opened it.
struct PadResult
{
    QString PadChars;
    /// Final length in characters.
    std::int16_t PadLen = 0;
    /// 0 left, 1 right.
    std::int32_t PadDirection = 0;
    /// Number of the data field. It stays from one dialog to the next until another is chosen.
    std::int16_t PadField = 0;
};

} // namespace vantrel
