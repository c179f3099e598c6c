#include "console/Stations.h"
#include "base/Profile.h"
#include "support/Print.h"
#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::console {
namespace {

constexpr qint64 Now = 1'800'000'000'000;
const QString Here = QStringLiteral("here");

class ConsoleStations : public ::testing::Test
{
protected:
    void SetActive(const char* section, const char* active) const
    {
        ASSERT_TRUE(WriteProfileValue(Folder.filePath(QStringLiteral("SessionStatus.ini")),
                                      QLatin1StringView(section), QStringLiteral("Active"),
                                      QLatin1StringView(active)));
    }
    static LedgerStation Station(int session, qint64 seen, bool ended = false,
                                 const QString& machine = Here)
    {
        LedgerStation station;
        station.Machine = machine;
        station.Session = session;
        station.Seen = seen;
        station.Ended = ended;
        return station;
    }
    /// Each as "session state wanted".
    QStringList Judged(const std::vector<LedgerStation>& noted) const
    {
        QStringList lines;
        for (const StationSeen& seen : JudgeStations(Folder.path(), noted, Here, Now)) {
            static const char* const states[] = {"alive", "silent", "ended", "missing"};
            lines += QStringLiteral("%1 %2 %3")
                         .arg(seen.Station.Session)
                         .arg(QLatin1StringView(states[static_cast<int>(seen.State)]),
                              seen.IsWanted ? QStringLiteral("wanted") : QStringLiteral("free"));
        }
        return lines;
    }

    QTemporaryDir Folder;
};

TEST_F(ConsoleStations, ThatTheStatusFileWantsAndThatNeverRanAreMissing)
{
    SetActive("Session 1", "True");
    SetActive("session 2", "False");
    SetActive("Session 300", "True");
    SetActive("Session x", "True");
    EXPECT_EQ(Judged({}), QStringList(QStringLiteral("1 missing wanted")));
}

TEST_F(ConsoleStations, AreAliveForHalfAMinuteAfterTheySaidSo)
{
    EXPECT_EQ(Judged({Station(1, Now), Station(2, Now - 30'000), Station(3, Now - 30'001)}),
              QStringList({QStringLiteral("1 alive wanted"), QStringLiteral("2 alive wanted"),
                           QStringLiteral("3 silent wanted")}));
}

TEST_F(ConsoleStations, ThatEndedInOrderNeedNotRunUnlessTheStatusFileWantsThem)
{
    SetActive("Session 2", "True");
    EXPECT_EQ(Judged({Station(1, Now, true), Station(2, Now, true)}),
              QStringList({QStringLiteral("1 ended free"), QStringLiteral("2 ended wanted")}));
}

TEST_F(ConsoleStations, ThatTheStatusFileDoesNotWantNeedNotRun)
{
    SetActive("Session 1", "False");
    EXPECT_EQ(Judged({Station(1, Now - 60'000)}), QStringList(QStringLiteral("1 silent free")));
}

TEST_F(ConsoleStations, OfOtherMachinesAreNotInTheStatusFile)
{
    SetActive("Session 1", "False");
    EXPECT_EQ(Judged({Station(1, Now - 60'000, false, QStringLiteral("there"))}),
              QStringList(QStringLiteral("1 silent wanted")));
}

} // namespace
} // namespace vantrel::console
