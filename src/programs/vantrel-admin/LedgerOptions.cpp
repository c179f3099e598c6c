#include "LedgerOptions.h"
#include "base/TimeText.h"
#include <QDateTime>
#include <QRegularExpression>

namespace vantrel::admin {

namespace {

[[noreturn]] void RefuseValue(const char* name, const QString& text, const char* wanted)
{
    throw NotUnderstood{QStringLiteral("%1 wants %2, not %3")
                            .arg(QLatin1StringView(name), QLatin1StringView(wanted), text)};
}

/// A time in milliseconds since 1970, UTC. A time without a zone is the machine's own.
qint64 TimeOf(const QString& text, const char* name)
{
    static const QRegularExpression ago(QStringLiteral("^([0-9]{1,9})([dhm])$"));
    if (const auto match = ago.match(text); match.hasMatch()) {
        constexpr qint64 minute = 60000;
        constexpr qint64 hour = 60 * minute;
        constexpr qint64 day = 24 * hour;
        const QString unit = match.captured(2);
        const qint64 length = unit == u"d" ? day : unit == u"h" ? hour : minute;
        return QDateTime::currentMSecsSinceEpoch() - match.captured(1).toLongLong() * length;
    }
    const auto time = ReadTimeText(text);
    if (!time)
        RefuseValue(name, text, "a time such as 2026-11-21, 2026-11-21T14:03 or 7d");
    return *time;
}

std::optional<qint64> TimeOption(const Words& words, const Option& option)
{
    const auto text = words.ValueOf(option.Name);
    return text ? std::optional(TimeOf(*text, option.Name)) : std::nullopt;
}

} // namespace

qlonglong NumberOf(const QString& text, const char* name, qlonglong least)
{
    bool isNumber = false;
    const qlonglong number = text.toLongLong(&isNumber);
    if (!isNumber || number < least)
        RefuseValue(name, text, "a whole number");
    return number;
}

LedgerFilter FilterOf(const Words& words)
{
    LedgerFilter filter;
    if (const auto state = words.ValueOf(StateOption.Name)) {
        filter.State = LedgerStateOf(*state);
        if (!filter.State)
            RefuseValue(StateOption.Name, *state,
                        qPrintable(LedgerStateNames().join(QStringLiteral(", "))));
    }
    filter.Text = words.ValueOf(TextOption.Name).value_or(QString());
    filter.Since = TimeOption(words, SinceOption);
    filter.Until = TimeOption(words, UntilOption);
    if (const auto before = words.ValueOf(BeforeOption.Name))
        filter.Before = NumberOf(*before, BeforeOption.Name, 0);
    if (const auto limit = words.ValueOf(LimitOption.Name))
        filter.Limit = NumberOf(*limit, LimitOption.Name, 0);
    return filter;
}

} // namespace vantrel::admin
