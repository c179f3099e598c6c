#pragma once

#include "drawing/CodePattern.h"
#include <array>

namespace vantrel::test {

/// @return a text that this kind holds, as readers tell it
inline QString SampleTextOf(CodeKind kind)
{
    constexpr std::array<const char*, CodeKindCount> texts = {
        "https://cards.example/member/4711?name=Ada+Lovelace",
        "ABC-4711/2026",
        "Ada Lovelace, member 4711",
        "Ada Lovelace 4711",
        "Card 4711/x",
        "CARD-4711",
        "4006381333931",
        "96385074",
        "036000291452",
        "1234567890",
        "A1234-56B",
    };
    return QLatin1StringView(texts.at(static_cast<std::size_t>(kind)));
}

} // namespace vantrel::test
