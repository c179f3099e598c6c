#include "shaping/ComposerElement.h"

namespace vantrel {

QString RestOfKey(const QString& key, QLatin1StringView word)
{
    const qsizetype at = key.indexOf(word);
    return at < 0 ? QString() : key.mid(at + word.size());
}

QString WithVisibleCodes(QString text)
{
    constexpr char16_t FirstPrintable = 0x20;
    constexpr char16_t ControlPictures = 0x2400;
    for (QChar& character : text) {
        if (character.unicode() < FirstPrintable)
            character = QChar(static_cast<char16_t>(ControlPictures + character.unicode()));
    }
    return text;
}

} // namespace vantrel
