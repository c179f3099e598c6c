#include "console/Routes.h"
#include "console/CardAnswers.h"
#include "console/CountAnswers.h"
#include "console/RecordAnswers.h"
#include "console/RecordChanges.h"
#include "console/StationAnswers.h"

namespace vantrel::console {

namespace {

constexpr Route Table[] = {
    {"GET", "healthz", Need::Nothing, ShowHealth},
    {"GET", "metrics", Need::Token, ShowMetrics},
    {"GET", "api/v1/stations", Need::Token, ListStations},
    {"GET", "api/v1/records", Need::Token, ListRecords},
    {"POST", "api/v1/records", Need::Change, AddRecord},
    {"GET", "api/v1/records/#", Need::Token, ShowRecord},
    {"GET", "api/v1/records/#/parts", Need::Token, ShowParts},
    {"GET", "api/v1/records/#/cards/#.png", Need::Token, ShowCard, Thread::Pictures},
    {"POST", "api/v1/records/#/reprint", Need::Change, ReprintRecord},
    {"POST", "api/v1/records/#/void", Need::Change, VoidRecord},
    {"GET", "api/v1/unsettled", Need::Token, ListUnsettled},
    {"GET", "api/v1/counts", Need::Token, ListCounts},
    {"GET", "api/v1/layouts", Need::Token, ListLayouts},
};

/// @return 0 for a text that is no whole number from 1 on
qlonglong NumberIn(QStringView text)
{
    constexpr qsizetype mostDigits = 18;
    if (text.isEmpty() || text.size() > mostDigits)
        return 0;
    qlonglong number = 0;
    for (const QChar digit : text) {
        if (digit < u'0' || digit > u'9')
            return 0;
        number = number * 10 + digit.unicode() - u'0';
    }
    return number;
}

} // namespace

std::span<const Route> Routes()
{
    return Table;
}

bool IsOnPath(const QStringList& path, QLatin1StringView pattern, PathNumbers& numbers)
{
    numbers.clear();
    qsizetype at = 0;
    for (const QLatin1StringView part : pattern.tokenize(u'/', Qt::SkipEmptyParts)) {
        if (at == path.size())
            return false;
        const QString& given = path[at++];
        if (!part.startsWith(u'#')) {
            if (given != part)
                return false;
            continue;
        }
        const QLatin1StringView behind = part.sliced(1);
        if (!given.endsWith(behind))
            return false;
        const qlonglong number = NumberIn(QStringView(given).chopped(behind.size()));
        if (number == 0)
            return false;
        numbers.push_back(number);
    }
    return at == path.size();
}

} // namespace vantrel::console
