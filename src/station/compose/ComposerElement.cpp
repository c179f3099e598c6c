#include "station/compose/ComposerElement.h"

namespace vantrel {

QString RestOfKey(const QString& key, QLatin1StringView word)
{
    const qsizetype at = key.indexOf(word);
    return at < 0 ? QString() : key.mid(at + word.size());
}

QString Without(QString text, QLatin1StringView word)
{
    return text.remove(word);
}

QString WithVisibleCodes(const QString& text)
{
    constexpr char16_t FirstPrintable = 0x20;
    QString shown;
    for (const QChar character : text) {
        if (character.unicode() < FirstPrintable)
            shown += QLatin1Char('[') + QString::number(character.unicode(), 16).toUpper() +
                     QLatin1Char(']');
        else
            shown += character;
    }
    return shown;
}

} // namespace vantrel
