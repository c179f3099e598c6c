#include "base/TimeText.h"
#include <QDateTime>

namespace vantrel {

std::optional<qint64> ReadTimeText(const QString& text)
{
    // Qt reads a day also where a time follows.
    constexpr qsizetype lengthOfDay = 10;
    if (text.size() <= lengthOfDay) {
        const QDate day = QDate::fromString(text, Qt::ISODate);
        return day.isValid() ? std::optional(day.startOfDay().toMSecsSinceEpoch()) : std::nullopt;
    }
    const QDateTime time = QDateTime::fromString(text, Qt::ISODateWithMs);
    return time.isValid() ? std::optional(time.toMSecsSinceEpoch()) : std::nullopt;
}

} // namespace vantrel
