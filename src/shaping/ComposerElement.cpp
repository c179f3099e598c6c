#include "shaping/ComposerElement.h"

namespace vantrel {

QString RestOfKey(const QString& key, QLatin1StringView word)
{
    const qsizetype at = key.indexOf(word);
    return at < 0 ? QString() : key.mid(at + word.size());
}

} // namespace vantrel
