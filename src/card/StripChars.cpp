#include "card/StripChars.h"
#include <bitset>
#include <limits>
#include <memory>

namespace vantrel {

namespace {

using CharacterSet = std::bitset<std::size_t{std::numeric_limits<char16_t>::max()} + 1>;

/// Up to this many characters a linear search is faster than a table.
constexpr qsizetype FewCharacters = 16;

} // namespace

QString StripChars(const QString& characters, const QString& text)
{
    // Most fields remove nothing; a value of megabytes is then shared instead of copied.
    if (characters.isEmpty())
        return text;
    QString kept = text;
    if (characters.size() <= FewCharacters) {
        kept.removeIf([&characters](QChar character) { return characters.contains(character); });
        return kept;
    }
    const auto set = std::make_unique<CharacterSet>();
    for (const QChar character : characters)
        set->set(character.unicode());
    kept.removeIf([&set](QChar character) { return set->test(character.unicode()); });
    return kept;
}

} // namespace vantrel
