#include "road/ConsoleProcess.h"
#include "support/Events.h"
#include "support/Memory.h"
#include <random>
#include <sys/resource.h>

// What anybody may send who reaches the console's port.

namespace vantrel::test {
namespace {

class ConsoleHostile : public ConsoleTest
{
protected:
    void SetUp() override
    {
        AddPrinted("Ada");
        Start();
    }
    void ExpectWell() { EXPECT_EQ(Get("/api/v1/records/1").Status, 200); }
};

TEST_F(ConsoleHostile, PathsThatTryToLeaveLeadNowhere)
{
    for (const char* target :
         {"/..", "/../Console.token", "/%2e%2e/Console.token", "/api/../../Console.token",
          "/%2e%2e%2fConsole.token", "//etc/passwd", "/api/v1/records/..%2f..%2fConsole.token",
          "/\\..\\Console.token", "/%00", "/api/v1/records/1%00.png", "/%ff", "/%"}) {
        const HttpAnswer answer = Get(target);
        EXPECT_EQ(answer.Status, 400) << target;
        EXPECT_FALSE(answer.Body.contains(Token())) << target;
    }
    ExpectWell();
}

TEST_F(ConsoleHostile, ABodyThatIsTooLongIsRefusedBeforeItIsRead)
{
    HttpClient client(Port());
    client.Send("POST /api/v1/records HTTP/1.1\r\nHost: 127.0.0.1\r\nAuthorization: Bearer " +
                Token() + "\r\nContent-Length: 1000000000000\r\n\r\n");
    EXPECT_EQ(client.Receive().Status, 413);
    ExpectWell();
}

TEST_F(ConsoleHostile, ABodyOfPiecesThatIsTooLongEndsTheConnection)
{
    const int before = Console->MemoryMiB();
    HttpClient client(Port());
    client.Send("POST /api/v1/records HTTP/1.1\r\nHost: 127.0.0.1\r\nAuthorization: Bearer " +
                Token() + "\r\nTransfer-Encoding: chunked\r\n\r\n");
    const QByteArray piece = "10000\r\n" + QByteArray(0x10000, 'x') + "\r\n";
    for (int pieces = 0; pieces < 200; ++pieces)
        client.Send(piece);
    EXPECT_TRUE(client.WaitForEnd());
    EXPECT_LT(Console->MemoryMiB(), before + MemoryRoom(30));
    ExpectWell();
}

TEST_F(ConsoleHostile, HeadersThatAreTooLongOrTooManyAreRefused)
{
    const QByteArray begin = "GET /api/v1/records HTTP/1.1\r\nHost: 127.0.0.1\r\n";
    for (const QByteArray& headers : QList<QByteArray>{
             "X: " + QByteArray(1'000'000, 'x'), QByteArray("X: 1\r\n").repeated(100'000),
             QByteArray(1'000'000, 'x'), "Cookie: " + QByteArray("a=1;").repeated(100'000)}) {
        HttpClient client(Port());
        client.Send(begin + headers + "\r\n\r\n");
        const int status = client.Receive().Status;
        // The connection may end while the rest is on its way.
        EXPECT_TRUE(status == 431 || status == 400 || status == 413 || status == 0) << status;
    }
    HttpClient client(Port());
    client.Send("GET /" + QByteArray(1'000'000, 'a') + " HTTP/1.1\r\n\r\n");
    const int status = client.Receive().Status;
    EXPECT_TRUE(status == 414 || status == 400 || status == 431 || status == 0) << status;
    ExpectWell();
}

TEST_F(ConsoleHostile, AThousandSlowClientsKeepNobodyOut)
{
    constexpr int clients = 1000;
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    limit.rlim_cur = limit.rlim_max;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    const int before = Console->MemoryMiB();
    std::vector<std::unique_ptr<HttpClient>> slow;
    for (int client = 0; client < clients; ++client) {
        slow.push_back(std::make_unique<HttpClient>(Port()));
        slow.back()->Send(client % 2 == 0 ? "GET /api/v1/rec" : "POST /login HTTP/1.1\r\nX-Slow: ");
    }
    ExpectWell();
    // Each of them is sent away, however steadily it drips.
    for (const auto& client : slow)
        client->Send("x");
    ExpectWell();
    EXPECT_TRUE(slow.front()->WaitForEnd());
    EXPECT_TRUE(slow.back()->WaitForEnd());
    EXPECT_TRUE(EventsUntil([&] { return Console->OpenDescriptors() < clients / 2; }));
    EXPECT_LT(Console->MemoryMiB(), before + MemoryRoom(60));
    ExpectWell();
}

TEST_F(ConsoleHostile, GarbageBehindARequestHurtsNobody)
{
    HttpClient client(Port());
    client.Send(RequestText("GET", "/healthz") + RequestText("GET", "/healthz") +
                QByteArray("\x00\x01garbage\r\n\r\n", 13) + QByteArray(100'000, '\xFF'));
    EXPECT_EQ(client.Receive().Status, 503);
    EXPECT_EQ(client.Receive().Status, 503);
    EXPECT_TRUE(client.WaitForEnd());
    ExpectWell();
}

TEST_F(ConsoleHostile, RandomBytesHurtNobodyAndTakeNoMemory)
{
    std::mt19937 random(7);
    const auto garbage = [&random](int length) {
        QByteArray bytes;
        for (int i = 0; i < length; ++i)
            bytes += static_cast<char>(random() % 256);
        return bytes;
    };
    const auto round = [&] {
        for (int turn = 0; turn < 300; ++turn) {
            HttpClient client(Port());
            QByteArray request =
                RequestText("POST", "/api/v1/records?text=" + garbage(3),
                            {{"Cookie", garbage(20)}, {"Origin", garbage(5)}}, garbage(50));
            for (int changes = turn % 4; changes > 0; --changes)
                request[static_cast<qsizetype>(random() % request.size())] = garbage(1).at(0);
            client.Send(request);
        }
        ExpectWell();
    };
    round();
    const int before = Console->MemoryMiB();
    for (int rounds = 0; rounds < 5; ++rounds)
        round();
    EXPECT_LT(Console->MemoryMiB(), before + MemoryRoom(10));
}

TEST_F(ConsoleHostile, ATargetOfTooManyParametersTakesNoMemory)
{
    const QByteArray request =
        "GET /api/v1/records?" + QByteArray(4000, '&') + " HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n";
    const auto ask = [&](int times) {
        for (int turn = 0; turn < times; ++turn) {
            HttpClient client(Port());
            client.Send(request);
            // What came before is read when the next one is answered.
            ASSERT_EQ(Get("/").Status, 200);
        }
    };
    ask(100);
    const int before = Console->MemoryMiB();
    ask(4000);
    EXPECT_LT(Console->MemoryMiB(), before + MemoryRoom(5));
    ExpectWell();
}

TEST_F(ConsoleHostile, OneConnectionMayAskAsOftenAsItLikes)
{
    HttpClient client(Port());
    const int before = Console->MemoryMiB();
    for (int turn = 0; turn < 3000; ++turn) {
        client.Send(RequestText("GET", "/api/v1/records/1", Bearer()));
        ASSERT_EQ(client.Receive().Status, 200);
    }
    EXPECT_LT(Console->MemoryMiB(), before + MemoryRoom(10));
}

} // namespace
} // namespace vantrel::test
