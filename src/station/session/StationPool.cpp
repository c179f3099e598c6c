#include "station/session/StationPool.h"
#include "station/session/StoreLocation.h"
#include <array>
#include <utility>

namespace vantrel {

namespace {

constexpr std::array WorkNames{std::pair{"take", PoolWork::Take},
                               std::pair{"print", PoolWork::Print},
                               std::pair{"both", PoolWork::Both}};

} // namespace

StationPool ReadStationPool(const QString& programFolder, QStringList& mistakes)
{
    StationPool pool;
    pool.Name = StoreOption(programFolder, QStringLiteral("Pool")).trimmed();
    const QString work = StoreOption(programFolder, QStringLiteral("Work")).trimmed();
    if (work.isEmpty())
        return pool;
    for (const auto& [name, value] : WorkNames) {
        if (work.compare(QLatin1StringView(name), Qt::CaseInsensitive) == 0) {
            pool.Work = value;
            return pool;
        }
    }
    mistakes.append(
        QStringLiteral("The key Work in the section [Store] of the settings file has no "
                       "such value and counts as missing: %1")
            .arg(work));
    return pool;
}

} // namespace vantrel
