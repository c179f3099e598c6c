#include "store/StoreDatabase.h"
#include "base/Failure.h"
#include "store/postgres/PostgresAddress.h"
#include "store/postgres/PostgresDatabase.h"
#include "store/sqlite/SqliteDatabase.h"
#include <QFileInfo>

namespace vantrel {

std::vector<qlonglong> StoreDatabase::RunAll(const std::vector<StoreStep>& steps)
{
    const auto run = [this](const StoreStep& step) -> qlonglong {
        if (step.Result == StoreStep::Gives::Added)
            return Add(step.Sql, step.Values);
        if (step.Result == StoreStep::Gives::Changed)
            return Change(step.Sql, step.Values);
        qlonglong found = 0;
        Select(step.Sql, step.Values, [&](const StoreRow& /*row*/) { ++found; });
        return found;
    };
    std::vector<qlonglong> given;
    for (const StoreStep& step : steps)
        given.push_back(run(step));
    return given;
}

std::vector<CursorRows> StoreDatabase::ReadAll(const std::vector<const CursorShape*>& shapes)
{
    std::vector<CursorRows> results;
    for (const CursorShape* shape : shapes) {
        CursorRows& rows = results.emplace_back();
        ReadRows(*shape, [&](CursorRow&& row) { rows.push_back(std::move(row)); });
    }
    return results;
}

std::unique_ptr<StoreDatabase> OpenStoreDatabase(const QString& location)
{
    if (IsPostgresAddress(location))
        return std::make_unique<PostgresDatabase>(location);
    if (!QFileInfo(location).isFile())
        throw Failure(FailureNumber::FileNotFound,
                      QStringLiteral("There is no layout database ") + location + QLatin1Char('.'));
    return std::make_unique<SqliteDatabase>(location, SqliteDatabase::OpenMode::Existing);
}

} // namespace vantrel
