#include "platform/Text.h"
#include "platform/Failure.h"

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

QString ReplaceText(const QString& text, const QString& wanted, const QString& replacement)
{
    qsizetype found = wanted.isEmpty() ? -1 : text.indexOf(wanted);
    if (found < 0)
        return text;
    QString replaced;
    replaced.reserve(text.size());
    qsizetype done = 0;
    for (; found >= 0; found = text.indexOf(wanted, done)) {
        replaced += QStringView(text).sliced(done, found - done);
        replaced += replacement;
        done = found + wanted.size();
    }
    replaced += QStringView(text).sliced(done);
    return replaced;
}

} // namespace vantrel
