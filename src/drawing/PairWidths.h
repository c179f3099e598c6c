#pragma once

#include "base/Font.h"
#include <QChar>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace vantrel {

/// Widths of pairs of neighbouring characters in one font, kerning included. They allow a long line
/// to be measured without being shaped, if the shape of its characters depends on the next
/// character at most. Each pair is shaped once and cached.
class PairWidths
{
public:
    explicit PairWidths(const Font& font);

    /// Whether the character's shape does not depend on its position in a word, as with European
    /// letters.
    static bool IsPlain(QChar character);
    /// @param character  one that `IsPlain` accepts
    /// @param next  the character after it, null if it is the last
    /// @return the distance in points from the start of the character to that of the next
    double Advance(QChar character, QChar next, bool isRightToLeft);

private:
    float Measure(QChar character, QChar next, bool isRightToLeft) const;

    Font m_font;
    /// Widths of left-to-right pairs of character codes below 256, indexed by both; `Unknown` if
    /// not yet measured.
    std::vector<float> m_byBytes;
    std::unordered_map<std::uint64_t, float> m_others;
};

} // namespace vantrel
