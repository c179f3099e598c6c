#pragma once

#include "ports/Framing.h"

namespace vantrel {

/// A filter flag and the replacement it makes in a value.
struct FilterRow
{
    bool Filters::*Flag;
    QStringView Wanted;
    QStringView Replacement;
};

/// In the order of application. Pairs of blanks are replaced in a single pass, so three blanks
/// become two.
inline constexpr FilterRow FilterReplacements[] = {
    {&Filters::Cr, u"\r", {}},      {&Filters::Lf, u"\n", {}},    {&Filters::Tab, u"\t", u" "},
    {&Filters::Space, u"  ", u" "}, {&Filters::Esc, u"\x1B", {}}, {&Filters::NewPage, u"\f", {}},
};

} // namespace vantrel
