#include "road/BurstHost.h"
#include "road/CardAccount.h"
#include "road/LedgerFolder.h"
#include "road/ServerStore.h"
#include "road/StationProcess.h"
#include "support/PrivatePostgres.h"
#include "support/SlowLine.h"
#include <QCoreApplication>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>

// A station whose server is behind a line that is slow, silent, or breaks while it commits: it
// tells so, goes on by itself, prints nothing twice, and no number is missing.

namespace vantrel::test {
namespace {

constexpr std::size_t Connections = 2;
constexpr std::size_t MostCardsRead = 100;
/// With its end: each transaction begins as one that sees what is committed.
const QByteArray Commit("COMMIT", 7);

class ServerLine : public ::testing::Test
{
protected:
    ServerLine()
    {
        PutStoreOnServer(Home(), Address, PrivatePostgres::Through(Address, Line.Port()));
    }

    QString Home() const { return Folder.Session.ProgramFolder; }
    /// How many lines of the station's log have this text.
    qsizetype TimesTold(const QString& text)
    {
        // The host goes on without events, and the log comes by them.
        QCoreApplication::processEvents();
        return Station->ErrorLines().filter(text).size();
    }
    qsizetype TimesAway() { return TimesTold(QStringLiteral("is away")); }
    qsizetype TimesBack() { return TimesTold(QStringLiteral("The store is back")); }
    void Start()
    {
        const int port = Folder.WithCapture();
        Station = std::make_unique<StationProcess>(Home());
        ASSERT_TRUE(Station->WaitUntilItListens(port));
        Host = std::make_unique<BurstHost>(port, QStringLiteral("A"), Connections, 1);
    }
    /// Goes on until so many further cards were printed.
    void ExpectCards(int count)
    {
        const qsizetype before = Printed();
        EXPECT_TRUE(Host->GoOnUntil([&] { return Printed() >= before + count; }));
    }
    qsizetype Printed() const
    {
        return std::count_if(Host->Answers().begin(), Host->Answers().end(),
                             [](const HostAnswer& answer) { return answer.Ok; });
    }
    /// Goes on until the station has told once more that the store is away.
    void ExpectAway(qsizetype before)
    {
        EXPECT_TRUE(Host->GoOnUntil([&] { return TimesAway() > before; }));
    }
    /// Lets the station come to rest, ends it, and looks at what it has left.
    void ExpectAllInOrder()
    {
        Host->BeginNothingNew();
        EXPECT_TRUE(Host->GoOnUntil([&] { return Host->IsAllAnswered(); }));
        EXPECT_TRUE(ComesToRest(Address));
        Station->SendSignal(SIGTERM);
        EXPECT_EQ(Station->ExitCode(), 0);
        CardAccount(Home(), 1).ExpectNothingLost(*Host, LedgerFolder::NumberBefore + 1,
                                                 MostCardsRead);
    }

    PrivatePostgres Server{PrivatePostgres::Commits::Durable};
    QString Address = Server.NewDatabase();
    SlowLine Line{Server.Socket()};
    LedgerFolder Folder;
    std::unique_ptr<StationProcess> Station;
    std::unique_ptr<BurstHost> Host;
};

TEST_F(ServerLine, ThatIsSlowIsToldAndGoneWhenItIsFast)
{
    constexpr int cards = 5;
    Start();
    Line.SetDelay(20);
    ExpectCards(cards);
    for (const int delayMs : {200, 2000}) {
        const qsizetype away = TimesAway();
        Line.SetDelay(delayMs);
        ExpectAway(away);
        Line.SetDelay(0);
        ExpectCards(cards);
    }
    EXPECT_GE(TimesBack(), 2);
    ExpectAllInOrder();
}

TEST_F(ServerLine, ThatIsSilentIsToldAndGoesOnWhereItWas)
{
    constexpr int cards = 5;
    Start();
    for (int i = 0; i < 3; ++i) {
        ExpectCards(cards + i);
        const qsizetype away = TimesAway();
        Line.SetSilent(true);
        ExpectAway(away);
        Line.SetSilent(false);
    }
    ExpectCards(cards);
    ExpectAllInOrder();
}

TEST_F(ServerLine, ThatBreaksWithinACommitLosesNoNumberAndPrintsNothingTwice)
{
    Start();
    constexpr int breaks = 10;
    for (int i = 0; i < breaks; ++i) {
        ExpectCards(1 + i % 3);
        Line.BreakAt(Commit, i % 2 == 0 ? SlowLine::Loses::Word : SlowLine::Loses::Answer);
        EXPECT_TRUE(Host->GoOnUntil([&] { return Line.HasBroken(); }));
    }
    ExpectCards(1);
    ExpectAllInOrder();
}

} // namespace
} // namespace vantrel::test
