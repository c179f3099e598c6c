#pragma once

#include "base/Font.h"
#include <QChar>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace vantrel {

/// How far apart two neighbours of a line stand in one font, for characters that look at no more
/// than their neighbour: so a line of any length is measured without being shaped. Each pair is
/// shaped once.
class PairWidths
{
public:
    explicit PairWidths(const Font& font);

    /// Whether a character stands by itself in every word, as the letters of Europe do.
    static bool IsPlain(QChar character);
    /// @param character  a plain one
    /// @param next  the one behind it; none where it is the last
    /// @return by how many points of the line the character is what its neighbour is not
    double Advance(QChar character, QChar next, bool isRightToLeft);

private:
    float Measure(QChar character, QChar next, bool isRightToLeft) const;

    Font m_font;
    /// Pairs of codes of one byte from left to right, by both; below 0 what was not measured yet.
    std::vector<float> m_byBytes;
    std::unordered_map<std::uint64_t, float> m_others;
};

} // namespace vantrel
