#include "console/Routes.h"
#include "console/Tokens.h"
#include "road/ConsoleProcess.h"
#include <QFile>

// Who may ask the console what.

namespace vantrel::test {
namespace {

class ConsoleGuard : public ConsoleTest
{
protected:
    void SetUp() override
    {
        AddPrinted("Ada");
        Start();
    }
    /// A path of the table, with the number 1 in its places.
    static QByteArray TargetOf(const console::Route& route)
    {
        return '/' + QByteArray(route.Path).replace('#', "1");
    }
    /// What each path that wants a token answers with these headers.
    void ExpectOfEveryPath(int status, const HttpHeaders& headers)
    {
        // At once, since refusals are held back.
        std::vector<std::pair<QByteArray, std::unique_ptr<HttpClient>>> asked;
        const auto ask = [&](const QByteArray& method, const QByteArray& target) {
            asked.emplace_back(target, std::make_unique<HttpClient>(Port()));
            asked.back().second->Send(RequestText(method, target, headers));
        };
        for (const console::Route& route : console::Routes()) {
            if (route.Need != console::Need::Nothing)
                ask(route.Method, TargetOf(route));
        }
        ask("GET", "/api/v1/events");
        for (const auto& [target, client] : asked)
            EXPECT_EQ(client->Receive().Status, status) << target.toStdString();
    }
    void ReplaceToken() const
    {
        const QString path = Folder.filePath(QStringLiteral("Console.token"));
        QFile file(path + QStringLiteral(".new"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
        file.write(console::NewSecret());
        file.close();
        QFile::remove(path);
        ASSERT_TRUE(file.rename(path));
    }
};

TEST_F(ConsoleGuard, EveryPathButHealthWantsTheToken)
{
    ExpectOfEveryPath(401, {});
    EXPECT_NE(Ask(Port(), "GET", "/healthz").Status, 401);
}

TEST_F(ConsoleGuard, AWrongTokenIsRefusedOnEveryPath)
{
    ExpectOfEveryPath(401, {{"Authorization", "Bearer " + QByteArray(64, '0')}});
    for (const QByteArray& wrong :
         QList<QByteArray>{"Basic " + Token(), Token(), QByteArray("Bearer"), QByteArray("Bearer "),
                           "Bearer x" + Token()})
        EXPECT_EQ(Ask(Port(), "GET", "/api/v1/records", {{"Authorization", wrong}}).Status, 401)
            << wrong.toStdString();
    EXPECT_EQ(Ask(Port(), "GET", "/api/v1/records", {{"Cookie", "vantrel=" + Token()}}).Status,
              401);
}

TEST_F(ConsoleGuard, AnOldTokenIsRefusedOnEveryPath)
{
    const HttpHeaders old = Bearer();
    EXPECT_EQ(Ask(Port(), "GET", "/api/v1/records", old).Status, 200);
    ReplaceToken();
    ExpectOfEveryPath(401, old);
    EXPECT_EQ(Get("/api/v1/records").Status, 200);
}

TEST_F(ConsoleGuard, AnotherStartOfTheConsoleIsKnownByItsName)
{
    const auto name = [this] {
        return Ask(Port(), "GET", "/login", {}).Json()[u"console"].toString();
    };
    const QString before = name();
    EXPECT_FALSE(before.isEmpty());
    EXPECT_EQ(name(), before);
    Console.reset();
    Start();
    EXPECT_FALSE(name().isEmpty());
    EXPECT_NE(name(), before);
}

TEST_F(ConsoleGuard, AnOldLoginIsRefusedOnEveryPath)
{
    const HttpHeaders login = LogIn();
    EXPECT_EQ(Ask(Port(), "GET", "/api/v1/records", login).Status, 200);
    EXPECT_EQ(Ask(Port(), "POST", "/logout", login).Status, 204);
    ExpectOfEveryPath(401, login);
    const HttpHeaders next = LogIn();
    ReplaceToken();
    ExpectOfEveryPath(401, next);
}

TEST_F(ConsoleGuard, ALoginIsACookieThatNoScriptAndNoOtherPageGets)
{
    const HttpAnswer answer = Ask(Port(), "POST", "/login", {{"Content-Type", "application/json"}},
                                  "{\"token\": \"" + Token() + "\"}");
    const QByteArray cookie = answer.Header("set-cookie");
    EXPECT_TRUE(cookie.startsWith("vantrel=")) << cookie.toStdString();
    EXPECT_TRUE(cookie.endsWith("; Path=/; HttpOnly; SameSite=Strict")) << cookie.toStdString();
    EXPECT_FALSE(cookie.contains(Token()));
}

TEST_F(ConsoleGuard, ALoginBelongsToTheConsoleOfOnePort)
{
    const QByteArray host = "127.0.0.1:" + QByteArray::number(Port());
    const HttpAnswer answer =
        Ask(Port(), "POST", "/login", {{"Content-Type", "application/json"}, {"Host", host}},
            "{\"token\": \"" + Token() + "\"}");
    const QByteArray header = answer.Header("set-cookie");
    const QByteArray cookie = header.left(header.indexOf(';'));
    const QByteArray name = "vantrel-" + QByteArray::number(Port()) + '=';
    EXPECT_TRUE(cookie.startsWith(name)) << cookie.toStdString();
    EXPECT_EQ(Ask(Port(), "GET", "/api/v1/records", {{"Cookie", cookie}, {"Host", host}}).Status,
              200);
    EXPECT_EQ(
        Ask(Port(), "GET", "/api/v1/records", {{"Cookie", cookie}, {"Host", "127.0.0.1:1"}}).Status,
        401);
}

TEST_F(ConsoleGuard, ALogoutOfAnotherPageIsRefused)
{
    HttpHeaders login = LogIn();
    login["Origin"] = "http://evil.example";
    EXPECT_EQ(Ask(Port(), "POST", "/logout", login).Status, 403);
    login.erase("Origin");
    EXPECT_EQ(Ask(Port(), "GET", "/api/v1/records", login).Status, 200);
}

TEST_F(ConsoleGuard, ALoginFromAnotherPageIsRefused)
{
    const QByteArray body = "{\"token\": \"" + Token() + "\"}";
    const HttpHeaders json{{"Content-Type", "application/json"}};
    HttpHeaders headers = json;
    headers["Origin"] = "http://evil.example";
    EXPECT_EQ(Ask(Port(), "POST", "/login", headers, body).Status, 403);
    // What a form of another page can send.
    EXPECT_EQ(Ask(Port(), "POST", "/login", {{"Content-Type", "text/plain"}}, body).Status, 403);
    EXPECT_EQ(Ask(Port(), "POST", "/login", json, "[]").Status, 400);
    EXPECT_EQ(Ask(Port(), "POST", "/login", json, "{\"token\": 1}").Status, 400);
}

TEST_F(ConsoleGuard, ARightTokenIsAnsweredWhoeverGuesses)
{
    HttpClient guessing(Port());
    guessing.Send(RequestText("POST", "/login", {{"Content-Type", "application/json"}},
                              "{\"token\": \"guess\"}"));
    // The owner is never slowed.
    EXPECT_EQ(Get("/api/v1/records").Status, 200);
    EXPECT_EQ(guessing.Receive().Status, 401);
}

TEST_F(ConsoleGuard, ManyGuessesAtOnceAreRefusedAsTooMany)
{
    std::vector<std::unique_ptr<HttpClient>> guessing;
    for (int guess = 0; guess < 200; ++guess) {
        const QByteArray token = "Bearer " + QByteArray::number(guess);
        guessing.push_back(std::make_unique<HttpClient>(Port()));
        guessing.back()->Send(RequestText("GET", "/api/v1/records", {{"Authorization", token}}));
    }
    int refused = 0;
    for (const auto& client : guessing) {
        const HttpAnswer answer = client->Receive();
        refused += answer.Status == 429 ? 1 : 0;
        EXPECT_EQ(answer.Status == 429, !answer.Header("retry-after").isEmpty());
        EXPECT_TRUE(answer.Status == 429 || answer.Status == 401) << answer.Status;
    }
    EXPECT_GT(refused, 0);
    EXPECT_EQ(Get("/api/v1/records").Status, 200);
}

TEST_F(ConsoleGuard, WhatIsNoPathOrNoMethodOfOneIsTold)
{
    for (const char* target : {"/api", "/api/v1", "/api/v1/records/0", "/api/v1/records/x",
                               "/Console.token", "/Vantrel.dat", "/favicon.gif"})
        EXPECT_EQ(Get(target).Status, 404) << target;
    const HttpAnswer answer = Ask(Port(), "DELETE", "/api/v1/records/1", Bearer());
    EXPECT_EQ(answer.Status, 405);
    EXPECT_TRUE(answer.Header("allow").contains("GET"));
    EXPECT_EQ(Ask(Port(), "PUT", "/login", Bearer()).Status, 405);
}

TEST_F(ConsoleGuard, EveryAnswerForbidsWhatAPageNeedsNot)
{
    for (const char* target : {"/healthz", "/api/v1/records", "/nowhere", "/login"}) {
        const HttpAnswer answer = Get(target);
        const QByteArray policy = answer.Header("content-security-policy");
        EXPECT_TRUE(policy.startsWith("default-src 'none'; script-src 'self';")) << target;
        EXPECT_FALSE(policy.contains("unsafe")) << target;
        EXPECT_EQ(answer.Header("x-content-type-options"), "nosniff") << target;
        EXPECT_EQ(answer.Header("x-frame-options"), "DENY") << target;
        EXPECT_EQ(answer.Header("cache-control"), "no-store") << target;
        EXPECT_EQ(answer.Header("referrer-policy"), "no-referrer") << target;
        EXPECT_EQ(answer.Header("access-control-allow-origin"), "") << target;
    }
}

} // namespace
} // namespace vantrel::test
