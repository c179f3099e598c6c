#include "station/start/StoreWatch.h"
#include "base/Profile.h"
#include "base/Skip.h"
#include "station/layout/LoadLayout.h"
#include "station/print/PrintCard.h"
#include "station/start/EntryPoint.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/PrivatePostgres.h"
#include "support/WarningGuard.h"
#include <gtest/gtest.h>

// A station whose layouts a server keeps, and a server that comes and goes.

namespace vantrel::test {

namespace {

const QString Staff = QStringLiteral("Staff");

class StoreWatchTest : public ::testing::Test
{
protected:
    StoreWatchTest()
    {
        BringUpToDate(*OpenStoreDatabase(Address), {});
        EXPECT_TRUE(WriteProfileValue(Session.PathInFolder(QStringLiteral("Vantrel 6.ini")),
                                      QStringLiteral("Store"), QStringLiteral("Database"),
                                      Address));
        OpenLayoutDb(Session);
        BeginLayout(Session, Staff);
        AddText(Session, QStringLiteral("text"));
        SavePage(Session);
        EXPECT_TRUE(LoadFirstPage(Session, Staff));
    }

    bool SaysAway() const
    {
        return Session.Face.Caption().endsWith(QStringLiteral("(the store is away)")) &&
               Session.Face.StatusPanel(LastArrivalPanel).Text ==
                   QStringLiteral("The store is away");
    }

    /// @return whether a card came out of the printer
    bool Prints()
    {
        Test.Printers.Operations.clear();
        PrintCard(Session);
        return Test.Printers.Operations.contains(QStringLiteral("Print(\"text\")"));
    }

    PrivatePostgres Server;
    QString Address = Server.NewDatabase();
    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

} // namespace

TEST_F(StoreWatchTest, TellsThatTheServerIsAwayAndGoesOnWhenItIsBack)
{
    WatchStore(Session);
    const QString caption = Session.Face.Caption();
    EXPECT_TRUE(Prints());
    AnnounceWarning(QStringLiteral("is away"));
    Server.Kill();
    ASSERT_TRUE(EventsUntil([&] { return SaysAway(); }));
    EXPECT_TRUE(Session.Road.IsBusy());
    EXPECT_FALSE(Prints());

    AnnounceWarning(QStringLiteral("The store is back."));
    Server.Start();
    ASSERT_TRUE(EventsUntil([&] { return !Session.Road.IsBusy(); }));
    EXPECT_EQ(Session.Face.Caption(), caption);
    EXPECT_EQ(Session.Face.StatusPanel(LastArrivalPanel).Text, QString());
    EXPECT_TRUE(Prints());
}

TEST_F(StoreWatchTest, OpensTheStoreWhenTheServerComesAfterTheStation)
{
    Session.LayoutDb.Close();
    Session.CurrentLayoutName.clear();
    Session.Settings.LastLayout = Staff;
    Server.Kill();
    EXPECT_FALSE(Skip("open", [&] { OpenLayoutDb(Session); }));
    AnnounceWarning(QStringLiteral("is away"));
    WatchStore(Session);
    EXPECT_TRUE(SaysAway());
    EXPECT_FALSE(Prints());

    AnnounceWarning(QStringLiteral("The store is back."));
    Server.Start();
    ASSERT_TRUE(EventsUntil([&] { return !Session.Road.IsBusy(); }));
    EXPECT_EQ(Session.CurrentLayoutName, Staff);
    EXPECT_TRUE(Prints());
}

TEST_F(StoreWatchTest, AFileIsNotWatched)
{
    TestSession other;
    other.WithDatabase();
    const qsizetype timers = other.Session.Face.children().size();
    WatchStore(other.Session);
    EXPECT_EQ(other.Session.Face.children().size(), timers);
}

} // namespace vantrel::test
