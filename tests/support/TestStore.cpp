#include "support/TestStore.h"
#include "store/Schema.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePostgres.h"
#include <QHash>

namespace vantrel::test {

namespace {
QHash<QString, QString>& Locations()
{
    static QHash<QString, QString> locations;
    return locations;
}
} // namespace

bool StoresAreOnServer()
{
    return qEnvironmentVariable("VANTREL_TEST_STORE") == QStringLiteral("postgres");
}

TestStore::TestStore(const QString& path) : m_path(path), m_location(path)
{
    if (!StoresAreOnServer()) {
        CreateLayoutDatabase(path);
        return;
    }
    m_location = PrivatePostgres::Shared().NewSchema();
    BringUpToDate(*OpenStoreDatabase(m_location), {});
    Locations().insert(path, m_location);
}

TestStore::~TestStore()
{
    if (!StoresAreOnServer())
        return;
    Locations().remove(m_path);
    PrivatePostgres::Shared().DropSchema(m_location);
}

QString StoreAt(const QString& path)
{
    return Locations().value(path, path);
}

void RefuseRows(const QString& location, const QString& change, const QString& condition)
{
    const QString name = QStringLiteral("refuse_") + change.section(u' ', 0, 0).toLower();
    if (!StoresAreOnServer()) {
        RunOnStore(location, QStringLiteral("CREATE TRIGGER %1 BEFORE %2 WHEN %3 BEGIN SELECT "
                                            "RAISE(ABORT, 'refused'); END")
                                 .arg(name, change, condition));
        return;
    }
    RunOnStore(location, QStringLiteral("CREATE FUNCTION %1() RETURNS trigger AS $$ BEGIN RAISE "
                                        "EXCEPTION 'refused'; END $$ LANGUAGE plpgsql; "
                                        "CREATE TRIGGER %1 BEFORE %2 FOR EACH ROW WHEN (%3) "
                                        "EXECUTE FUNCTION %1()")
                             .arg(name, change, condition));
}

void RefuseValue(const QString& location, const QString& action, const QString& text)
{
    RefuseRows(location, action + QStringLiteral(" ON Controls"),
               QStringLiteral("NEW.C_Value = '%1'").arg(text));
}

void RunOnStore(const QString& location, const QString& sql)
{
    OpenStoreDatabase(location)->Execute(sql);
}

} // namespace vantrel::test
