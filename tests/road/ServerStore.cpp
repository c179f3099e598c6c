#include "road/ServerStore.h"
#include "base/Profile.h"
#include "road/AdminRun.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/PrivatePostgres.h"
#include <gtest/gtest.h>

namespace vantrel::test {

void PutStoreOnServer(const QString& programFolder, const QString& store, const QString& station)
{
    ASSERT_EQ(
        RunAdmin({QStringLiteral("store"), QStringLiteral("copy"), programFolder, store}).Code, 0);
    ASSERT_TRUE(WriteProfileValue(SettingsPath(programFolder), QStringLiteral("Store"),
                                  QStringLiteral("Database"), station));
}

bool ComesToRest(const QString& store)
{
    const QString open = QStringLiteral(
        "SELECT count(*) FROM LedgerEntries WHERE State IN ('received', 'printing')");
    return EventsUntil([&] { return PrivatePostgres::Run(store, open) == QStringLiteral("0"); });
}

} // namespace vantrel::test
