#include "console/Query.h"
#include "base/TimeText.h"
#include <algorithm>

namespace vantrel::console {

namespace {

constexpr qlonglong UsualLimit = 100;
constexpr qlonglong HighestLimit = 1000;

[[noreturn]] void RefuseValue(const QString& name, const QString& wanted)
{
    throw NotTaken{400, QStringLiteral("%1 wants %2").arg(name, wanted)};
}

class Reader
{
public:
    explicit Reader(const QMap<QString, QString>& query) : m_query(query) {}

    LedgerFilter Filter() const
    {
        LedgerFilter filter;
        filter.Text = m_query.value(QStringLiteral("text"));
        if (filter.Text.size() > LongestSearchText)
            RefuseValue(QStringLiteral("text"),
                        QStringLiteral("at most %1 characters").arg(LongestSearchText));
        if (const QString name = m_query.value(QStringLiteral("state")); !name.isEmpty()) {
            filter.State = LedgerStateOf(name);
            if (!filter.State)
                RefuseValue(QStringLiteral("state"),
                            QStringLiteral("one of ") +
                                LedgerStateNames().join(QStringLiteral(", ")));
        }
        filter.Since = Time(QStringLiteral("since"));
        filter.Until = Time(QStringLiteral("until"));
        filter.Before = Number(QStringLiteral("before"));
        const qlonglong limit = Number(QStringLiteral("limit")).value_or(UsualLimit);
        // A list without an end is for the command line.
        filter.Limit = limit == 0 ? HighestLimit : std::min(limit, HighestLimit);
        return filter;
    }

private:
    std::optional<qlonglong> Number(const QString& name) const
    {
        const QString text = m_query.value(name);
        if (text.isEmpty())
            return std::nullopt;
        bool isNumber = false;
        const qlonglong number = text.toLongLong(&isNumber);
        if (!isNumber || number < 0)
            RefuseValue(name, QStringLiteral("a whole number"));
        return number;
    }
    /// In milliseconds since 1970, UTC.
    std::optional<qint64> Time(const QString& name) const
    {
        const QString text = m_query.value(name);
        if (text.isEmpty())
            return std::nullopt;
        const auto time = ReadTimeText(text);
        if (!time)
            RefuseValue(name, QStringLiteral("a date, or a date and time"));
        return time;
    }

    const QMap<QString, QString>& m_query;
};

} // namespace

LedgerFilter FilterOf(const QMap<QString, QString>& query)
{
    return Reader(query).Filter();
}

} // namespace vantrel::console
