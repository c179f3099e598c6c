#include "road/ServerStore.h"
#include "base/Profile.h"
#include "road/AdminRun.h"
#include "station/session/Settings.h"
#include <gtest/gtest.h>

namespace vantrel::test {

void PutStoreOnServer(const QString& programFolder, const QString& store, const QString& station)
{
    ASSERT_EQ(
        RunAdmin({QStringLiteral("store"), QStringLiteral("copy"), programFolder, store}).Code, 0);
    ASSERT_TRUE(WriteProfileValue(SettingsPath(programFolder), QStringLiteral("Store"),
                                  QStringLiteral("Database"), station));
}

} // namespace vantrel::test
