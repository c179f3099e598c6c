#include "console/Tokens.h"
#include "console/LoginGuard.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::console {
namespace {

using namespace std::chrono_literals;

class ConsoleTokens : public ::testing::Test
{
protected:
    Tokens Make()
    {
        return Tokens(Path, [this] { return Now; });
    }
    QByteArray Written() const
    {
        QFile file(Path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().trimmed();
    }
    void Write(const QByteArray& token) const
    {
        const QString other = Path + QStringLiteral(".new");
        QFile file(other);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
        file.write(token + '\n');
        file.close();
        QFile::remove(Path);
        ASSERT_TRUE(file.rename(Path));
    }

    QTemporaryDir Folder;
    QString Path = Folder.filePath(QStringLiteral("Console.token"));
    Tokens::Time Now = std::chrono::steady_clock::now();
};

TEST_F(ConsoleTokens, AreMadeAtTheFirstStartForTheOwnerAlone)
{
    Tokens tokens = Make();
    const QByteArray token = Written();
    EXPECT_EQ(token.size(), 64);
    constexpr auto owner =
        QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    EXPECT_EQ(QFile::permissions(Path) & ~owner, QFile::Permissions());
    EXPECT_TRUE(tokens.IsToken(token));
    EXPECT_TRUE(Make().IsToken(token));
    for (const QByteArray& wrong :
         QList<QByteArray>{QByteArray(), token.left(63), token + 'a', token.toUpper(),
                           QByteArray(64, '0'), QByteArray(1'000'000, 'a')}) {
        EXPECT_EQ(tokens.IsToken(wrong), wrong == token);
    }
}

TEST_F(ConsoleTokens, ThatOthersMayReadAreRefused)
{
    Make();
    ASSERT_TRUE(QFile::setPermissions(Path, QFile::ReadOwner | QFile::ReadGroup));
    const QString failure = test::FailureTextOf([this] { Make(); });
    EXPECT_TRUE(failure.contains(QStringLiteral("by others than its owner")));
}

TEST_F(ConsoleTokens, ThatWereReplacedAreWorthNothingAtOnceAndEndAllLogins)
{
    Tokens tokens = Make();
    const QByteArray old = Written();
    const QByteArray login = tokens.Open();
    ASSERT_TRUE(tokens.ForgeryTokenOf(login));
    const QByteArray next = NewSecret();
    Write(next);
    EXPECT_FALSE(tokens.IsToken(old));
    EXPECT_TRUE(tokens.IsToken(next));
    EXPECT_FALSE(tokens.ForgeryTokenOf(login));
}

TEST_F(ConsoleTokens, ThatWereRemovedAreMadeAnew)
{
    Tokens tokens = Make();
    const QByteArray old = Written();
    ASSERT_TRUE(QFile::remove(Path));
    EXPECT_FALSE(tokens.IsToken(old));
    const QByteArray next = Written();
    EXPECT_NE(next, old);
    EXPECT_TRUE(tokens.IsToken(next));
    const QByteArray login = tokens.Open();
    EXPECT_TRUE(tokens.ForgeryTokenOf(login));
}

TEST_F(ConsoleTokens, WhileTheFileIsOfNoUseNothingIsTheToken)
{
    Tokens tokens = Make();
    Write("not a token");
    EXPECT_FALSE(tokens.IsToken("not a token"));
    EXPECT_FALSE(tokens.IsToken(""));
    const QByteArray next = NewSecret();
    Write(next);
    EXPECT_TRUE(tokens.IsToken(next));
}

TEST_F(ConsoleTokens, ALoginEndsWhenItIsClosedOrNotUsedForTwelveHours)
{
    Tokens tokens = Make();
    const QByteArray closed = tokens.Open();
    const QByteArray rested = tokens.Open();
    const QByteArray used = tokens.Open();
    EXPECT_NE(tokens.ForgeryTokenOf(closed), tokens.ForgeryTokenOf(rested));
    tokens.Close(closed);
    EXPECT_FALSE(tokens.ForgeryTokenOf(closed));
    for (int hour = 0; hour < 13; ++hour) {
        Now += 1h;
        EXPECT_TRUE(tokens.ForgeryTokenOf(used));
    }
    EXPECT_FALSE(tokens.ForgeryTokenOf(rested));
    EXPECT_FALSE(tokens.ForgeryTokenOf(""));
}

TEST_F(ConsoleTokens, OfManyLoginsTheOldestGo)
{
    Tokens tokens = Make();
    const QByteArray first = tokens.Open();
    for (int login = 0; login < 100; ++login) {
        Now += 1s;
        tokens.Open();
    }
    EXPECT_FALSE(tokens.ForgeryTokenOf(first));
}

TEST_F(ConsoleTokens, WrongOnesAreAnsweredLaterAndLaterUntilNoneCameForAWhile)
{
    LoginGuard guard([this] { return Now; });
    const auto fail = [&] {
        const auto delay = guard.Fail();
        guard.Sent();
        return delay.value_or(0ms);
    };
    EXPECT_EQ(fail(), 250ms);
    EXPECT_EQ(fail(), 500ms);
    EXPECT_EQ(fail(), 1000ms);
    for (int failure = 0; failure < 100; ++failure)
        fail();
    EXPECT_EQ(fail(), 4000ms);
    Now += 6min;
    EXPECT_EQ(fail(), 250ms);
}

TEST_F(ConsoleTokens, OnlySoManyRefusalsAreHeldBackAtATime)
{
    LoginGuard guard([this] { return Now; });
    for (int failure = 0; failure < 32; ++failure)
        EXPECT_TRUE(guard.Fail());
    EXPECT_FALSE(guard.Fail());
    guard.Sent();
    EXPECT_TRUE(guard.Fail());
}

} // namespace
} // namespace vantrel::console
