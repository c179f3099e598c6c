#include "base/Text.h"
#include "base/Failure.h"
#include <algorithm>

namespace vantrel {

namespace {
constexpr QLatin1Char blank(' ');

[[noreturn]] void FailCall()
{
    throw Failure(FailureNumber::InvalidCall, QStringLiteral("Invalid procedure call or argument"));
}
} // namespace

QStringView TrimBlanks(QStringView text)
{
    while (text.startsWith(blank))
        text = text.sliced(1);
    while (text.endsWith(blank))
        text.chop(1);
    return text;
}

qsizetype InStr(qsizetype from, const QString& text, const QString& wanted)
{
    if (from < 1)
        FailCall();
    if (from > text.size())
        return 0;
    return text.indexOf(wanted, from - 1) + 1;
}

QString Mid(const QString& text, qsizetype from, qsizetype length)
{
    if (from < 1 || length < 0)
        FailCall();
    return text.mid(from - 1, length);
}

void ReplaceText(QString& text, QStringView wanted, QStringView replacement)
{
    Q_ASSERT(replacement.size() <= wanted.size());
    qsizetype found = wanted.isEmpty() ? -1 : text.indexOf(wanted);
    if (found < 0)
        return;
    // The write position never passes the read position.
    QChar* const characters = text.data();
    const QStringView whole(characters, text.size());
    QChar* written = characters;
    qsizetype done = 0;
    for (; found >= 0; found = whole.indexOf(wanted, done)) {
        written = std::copy(characters + done, characters + found, written);
        written = std::copy(replacement.begin(), replacement.end(), written);
        done = found + wanted.size();
    }
    written = std::copy(characters + done, characters + text.size(), written);
    text.truncate(written - characters);
}

} // namespace vantrel
