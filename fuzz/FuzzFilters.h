#pragma once

#include "ports/Framing.h"
#include <cstdint>

namespace vantrel::fuzz {

/// Filters of records, one for each of the lowest six bits.
inline Filters FiltersOf(std::uint8_t bits)
{
    Filters filters;
    filters.Cr = (bits & 1U) != 0;
    filters.Lf = (bits & 2U) != 0;
    filters.Tab = (bits & 4U) != 0;
    filters.Space = (bits & 8U) != 0;
    filters.Esc = (bits & 16U) != 0;
    filters.NewPage = (bits & 32U) != 0;
    return filters;
}

} // namespace vantrel::fuzz
