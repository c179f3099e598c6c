#include "shaping/StripChars.h"

namespace vantrel {

QString StripChars(const QString& characters, const QString& text)
{
    QString kept = text;
    kept.removeIf([&characters](QChar character) { return characters.contains(character); });
    return kept;
}

} // namespace vantrel
