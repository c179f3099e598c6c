#include "support/SlowLine.h"
#include "StoreTest.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePostgres.h"
#include <QThread>
#include <algorithm>

// A server behind a line that is slow, silent, or breaks.

namespace vantrel::test {

namespace {

const QString Controls = QStringLiteral("Controls");
constexpr int StepMs = 1000;
/// With its end: each transaction begins as one that sees what is committed.
const QByteArray Commit("COMMIT", 7);

class ServerBehindLine : public ::testing::Test
{
protected:
    ServerBehindLine() { BringUpToDate(*OpenStoreDatabase(Address), {}); }
    ~ServerBehindLine() override { PrivatePostgres::Shared().DropSchema(Address); }

    void AddRow()
    {
        Store.BeginTrans();
        Store.Database().InsertRow(Controls, {QStringLiteral("Page")}, {1}, nullptr);
        Store.CommitTrans();
    }
    void BeginStep() { Store.Database().SetPatience(StepMs); }
    void UntilItWorks()
    {
        BeginStep();
        while (FailureOf([&] { AddRow(); }) != 0) {
            Store.RollbackTrans();
            QThread::msleep(20);
            BeginStep();
        }
    }
    /// A machine that is busy with other things may need more than a second.
    void OpenAtLast()
    {
        while (FailureOf([&] { Store.Open(Slow); }) != 0)
            QThread::msleep(20);
    }
    int Rows() const
    {
        return PrivatePostgres::Run(Address, QStringLiteral("SELECT count(*) FROM Controls"))
            .toInt();
    }
    qint64 RoundTrips() const { return Line.Count().RoundTrips; }

    QString Address = PrivatePostgres::Shared().NewSchema();
    SlowLine Line{PrivatePostgres::Shared().Socket()};
    QString Slow = PrivatePostgres::Through(Address, Line.Port());
    Connection Store;
};

/// The delays in milliseconds that a station can work with.
class ServerBehindSlowLine : public ServerBehindLine, public ::testing::WithParamInterface<int>
{};

} // namespace

TEST_P(ServerBehindSlowLine, IsAsGoodAsOneThatIsNear)
{
    Line.SetDelay(GetParam());
    Store.Open(Slow);
    AddRow();
    AddRow();
    EXPECT_EQ(Rows(), 2);
    EXPECT_EQ(Store.Database().Trouble(), QString());
}

INSTANTIATE_TEST_SUITE_P(Delays, ServerBehindSlowLine, ::testing::Values(20, 200));

TEST_F(ServerBehindLine, OfTwoSecondsIsAwayUntilItIsFast)
{
    Line.SetDelay(2000);
    EXPECT_EQ(FailureOf([&] { Store.Open(Slow); }), FailureNumber::StoreBusy);
    Line.SetDelay(0);
    OpenAtLast();
    AddRow();
    EXPECT_EQ(Rows(), 1);
}

TEST_F(ServerBehindLine, HoldsAStepUpOnlyForItsTimeHoweverManyQuestionsItHas)
{
    constexpr int delayMs = 200;
    constexpr int questions = 40;
    Store.Open(Slow);
    Line.SetDelay(delayMs);
    BeginStep();
    const qint64 before = RoundTrips();
    int answered = 0;
    for (int i = 0; i < questions; ++i)
        answered += FailureOf([&] { Store.Database().Execute(QStringLiteral("SELECT 1")); }) == 0;
    // A question needs a round trip, and so does each that is not answered any more.
    EXPECT_LE(answered, StepMs / delayMs);
    EXPECT_LE(RoundTrips() - before, StepMs / delayMs + 1);
    EXPECT_TRUE(Store.Database().Trouble().contains(QStringLiteral("does not answer in time")))
        << Store.Database().Trouble().toStdString();
    // Whatever else is tried in this step fails at once, also a connection anew.
    const SlowLine::Traffic stopped = Line.Count();
    EXPECT_EQ(FailureOf([&] { Store.BeginTrans(); }), FailureNumber::StoreBusy);
    EXPECT_EQ(Line.Count().RoundTrips, stopped.RoundTrips);
    EXPECT_EQ(Line.Count().Connections, stopped.Connections);
    Line.SetDelay(0);
    UntilItWorks();
    EXPECT_EQ(Store.Database().Trouble(), QString());
    EXPECT_EQ(Rows(), 1);
}

/// A page of a thousand objects is saved in one step.
TEST_F(ServerBehindLine, ThatAnswersPromptlyMayBeAskedAnythingInOneStep)
{
    constexpr int delayMs = 5;
    constexpr int questions = 300;
    Store.Open(Slow);
    Line.SetDelay(delayMs);
    BeginStep();
    int answered = 0;
    for (int i = 0; i < questions; ++i)
        answered += FailureOf([&] { Store.Database().Execute(QStringLiteral("SELECT 1")); }) == 0;
    EXPECT_EQ(answered, questions);
}

TEST_F(ServerBehindLine, GivesEachStepItsTimeAnew)
{
    constexpr int delayMs = 50;
    constexpr int steps = 60;
    Store.Open(Slow);
    Line.SetDelay(delayMs);
    for (int i = 0; i < steps; ++i) {
        BeginStep();
        ASSERT_NO_THROW(Store.Database().Execute(QStringLiteral("SELECT 1"))) << i;
    }
}

TEST_F(ServerBehindLine, ThatIsSilentHoldsAStepUpOnlyForItsTimeInAll)
{
    Store.Open(Slow);
    Line.SetSilent(true);
    BeginStep();
    // By itself each would have half a minute.
    constexpr int questions = 40;
    for (int i = 0; i < questions; ++i)
        EXPECT_EQ(FailureOf([&] { AddRow(); }), FailureNumber::StoreBusy);
    EXPECT_TRUE(Store.Database().Trouble().contains(QStringLiteral("in time")));
    Line.SetSilent(false);
    UntilItWorks();
    EXPECT_EQ(Rows(), 1);
}

TEST_F(ServerBehindLine, ThatIsSilentBehindTheConnectingIsAwayWhenTheStoreIsOpened)
{
    Line.SilenceAt("version");
    EXPECT_EQ(FailureOf([&] { Store.Open(Slow); }), FailureNumber::StoreBusy);
    Line.SetSilent(false);
    OpenAtLast();
}

TEST_F(ServerBehindLine, LeavesItUnknownWhetherACommitWasCarriedOutWhereTheLineBreaks)
{
    Store.Open(Slow);
    int rows = 0;
    for (const auto loses : {SlowLine::Loses::Word, SlowLine::Loses::Answer}) {
        Line.BreakAt(Commit, loses);
        EXPECT_EQ(FailureOf([&] { AddRow(); }), FailureNumber::StoreBusy);
        EXPECT_TRUE(Line.HasBroken());
        EXPECT_TRUE(Store.Database().IsCommitInDoubt());
        EXPECT_FALSE(Store.InTransaction());
        Store.RollbackTrans();
        rows += loses == SlowLine::Loses::Answer ? 1 : 0;
        EXPECT_EQ(Rows(), rows);
        UntilItWorks();
        EXPECT_FALSE(Store.Database().IsCommitInDoubt());
        EXPECT_EQ(Rows(), ++rows);
    }
}

TEST_F(ServerBehindLine, LosesATransactionAsAWholeWhereTheLineBreaksWithinIt)
{
    Store.Open(Slow);
    Line.BreakAt("INSERT", SlowLine::Loses::Answer);
    EXPECT_EQ(FailureOf([&] { AddRow(); }), FailureNumber::StoreBusy);
    EXPECT_FALSE(Store.Database().IsCommitInDoubt());
    Store.RollbackTrans();
    UntilItWorks();
    EXPECT_EQ(Rows(), 1);
}

} // namespace vantrel::test
