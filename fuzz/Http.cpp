#include "FuzzInput.h"
#include "console/HttpServer.h"
#include <QCoreApplication>
#include <QTcpSocket>

// Whatever a client sends to the console's port: a request that is handed on is within its limits,
// what comes back begins like an answer, and the next client is answered.

namespace {

using namespace vantrel;
using namespace vantrel::console;

constexpr int PatienceMilliseconds = 20000;
/// Of the event loop, a few of which answer a request; counted, since a busy machine takes its
/// time.
constexpr int MostTurns = 500'000;

Answer AnswerTo(const Request& request)
{
    fuzz::Require(request.Body.size() <= LongestBody, "a body has an end");
    for (const QString& part : request.To.Path)
        fuzz::Require(!part.isEmpty() && !part.contains(u'/'), "a part of a path is a name");
    return JsonAnswer("{\"path\": " + JsonText(request.To.Path.join(u'/')) + "}\n");
}

/// A server, and what its library wants: an event loop.
struct Listening
{
    int Count = 0;
    char** Arguments = nullptr;
    QCoreApplication Application{Count, Arguments};
    HttpServer Server{{}, [](const Request& request, const HttpServer::Reply& reply) {
                          reply(AnswerTo(request));
                      }};
};

/// A client that has sent all it has.
void Send(QTcpSocket& client, quint16 port, const QByteArray& bytes)
{
    client.connectToHost(QHostAddress::LocalHost, port);
    fuzz::Require(client.waitForConnected(PatienceMilliseconds), "the port is open");
    client.write(bytes);
    while (client.bytesToWrite() > 0 && client.waitForBytesWritten(PatienceMilliseconds))
        QCoreApplication::processEvents();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Listening listening;
    QTcpSocket client;
    Send(client, listening.Server.Port(), fuzz::Input(data, size).Rest());
    // Whoever comes next is answered, and what came before is read by then.
    QTcpSocket next;
    Send(next, listening.Server.Port(),
         "GET /next HTTP/1.1\r\nHost: a\r\nConnection: close\r\n\r\n");
    for (int turn = 0; next.state() != QAbstractSocket::UnconnectedState; ++turn) {
        QCoreApplication::processEvents();
        fuzz::Require(turn < MostTurns, "the next one's connection ends");
    }
    fuzz::Require(next.readAll().endsWith("{\"path\": \"next\"}\n"), "the next one is answered");
    const QByteArray answer = client.readAll();
    fuzz::Require(answer.isEmpty() || answer.startsWith("HTTP/1.1 "),
                  "what comes back is an answer");
    client.abort();
    return 0;
}
