#include "store/StoreDatabase.h"
#include "base/Failure.h"
#include "store/postgres/PostgresAddress.h"
#include "store/postgres/PostgresDatabase.h"
#include "store/sqlite/SqliteDatabase.h"
#include <QFileInfo>
#include <map>
#include <string_view>

namespace vantrel {

std::vector<qlonglong> StoreDatabase::RunAll(const std::vector<StoreStep>& steps)
{
    const auto run = [this](const StoreStep& step, const QVariantList& values) -> qlonglong {
        if (step.Result == StoreStep::Gives::Added)
            return Add(step.Sql, values);
        if (step.Result == StoreStep::Gives::Changed)
            return Change(step.Sql, values);
        qlonglong found = 0;
        Select(step.Sql, values, [&](const StoreRow& /*row*/) { ++found; });
        return found;
    };
    std::vector<qlonglong> given;
    std::map<std::string_view, qlonglong> named;
    const auto known = [&](QVariant& value) {
        const auto step = named.find(value.value<NumberOfStep>().Name);
        if (step == named.end())
            throw Failure(FailureNumber::StatementInvalid,
                          QStringLiteral("The layout database: no number was given before."));
        value = step->second;
    };
    for (const StoreStep& step : steps) {
        QVariantList values = step.Values;
        for (QVariant& value : values)
            if (value.canConvert<NumberOfStep>())
                known(value);
        given.push_back(run(step, values));
        if (step.Name != nullptr)
            named[step.Name] = given.back();
    }
    return given;
}

std::vector<std::optional<CursorRows>>
StoreDatabase::ReadChanged(const std::vector<KnownRows>& known)
{
    std::vector<std::optional<CursorRows>> results;
    for (const KnownRows& one : known) {
        CursorRows& rows = results.emplace_back(CursorRows()).value();
        ReadRows(*one.Shape, [&](CursorRow&& row) { rows.push_back(std::move(row)); });
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
