#include "printers/CupsJobWatch.h"
#include "support/Events.h"
#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QThread>
#include <array>
#include <cups/cups.h>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

/// A server that takes connections and says nothing. While it lives libcups in this thread refers
/// to it.
class SilentServer
{
public:
    SilentServer()
    {
        EXPECT_TRUE(Server.listen(m_folder.filePath(QStringLiteral("silent.sock"))));
        cupsSetServer(Server.fullServerName().toUtf8().constData());
    }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;
    ~SilentServer() { cupsSetServer(nullptr); }

    /// Waits for a connection and the beginning of a request.
    QLocalSocket* NextRequest()
    {
        EXPECT_TRUE(EventsUntil([&] { return Server.hasPendingConnections(); }));
        QLocalSocket* connection = Server.nextPendingConnection();
        EXPECT_TRUE(EventsUntil([&] { return connection->bytesAvailable() > 0; }));
        return connection;
    }

    QLocalServer Server;

private:
    QTemporaryDir m_folder;
};

/// An answer that lists one job, with reasons as servers give them.
QByteArray AnswerWithCanceledJob(int jobId)
{
    ipp_t* answer = ippNew();
    ippSetVersion(answer, 2, 0);
    ippSetStatusCode(answer, IPP_STATUS_OK);
    ippSetRequestId(answer, 1);
    ippAddString(answer, IPP_TAG_OPERATION, IPP_TAG_CHARSET, "attributes-charset", nullptr,
                 "utf-8");
    ippAddString(answer, IPP_TAG_OPERATION, IPP_TAG_LANGUAGE, "attributes-natural-language",
                 nullptr, "en");
    ippAddInteger(answer, IPP_TAG_JOB, IPP_TAG_INTEGER, "job-id", jobId);
    ippAddInteger(answer, IPP_TAG_JOB, IPP_TAG_ENUM, "job-state", IPP_JSTATE_CANCELED);
    constexpr std::array reasons = {"job-canceled-by-user", "account-limit-reached"};
    ippAddStrings(answer, IPP_TAG_JOB, IPP_TAG_KEYWORD, "job-state-reasons",
                  static_cast<int>(reasons.size()), nullptr, reasons.data());
    ippAddString(answer, IPP_TAG_JOB, IPP_TAG_TEXT, "job-printer-state-message", nullptr,
                 "No cards\n left");
    QByteArray bytes;
    const auto append = [](void* to, ipp_uchar_t* data, std::size_t size) -> ssize_t {
        static_cast<QByteArray*>(to)->append(reinterpret_cast<const char*>(data),
                                             static_cast<qsizetype>(size));
        return static_cast<ssize_t>(size);
    };
    EXPECT_EQ(ippWriteIO(&bytes, append, 1, nullptr, answer), IPP_STATE_DATA);
    ippDelete(answer);
    return "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\nContent-Length: " +
           QByteArray::number(bytes.size()) + "\r\n\r\n" + bytes;
}

CupsJobWatch::Pace WithPatience(milliseconds patience)
{
    CupsJobWatch::Pace pace;
    pace.Between = milliseconds(1);
    pace.LongestBetween = milliseconds(50);
    pace.Patience = patience;
    return pace;
}

} // namespace

TEST(SilentCupsServer, DoesNotHoldUpTheEndOfTheProgram)
{
    SilentServer silent;
    auto watch = std::make_unique<CupsJobWatch>(WithPatience(hours(1)), nullptr);
    watch->Watch(1);
    const QLocalSocket* connection = silent.NextRequest();
    watch.reset();
    EXPECT_TRUE(EventsUntil([&] { return connection->state() == QLocalSocket::UnconnectedState; }))
        << "the request is given up";
}

TEST(SilentCupsServer, DoesNotHoldUpTheEndOfTheProgramBetweenTwoRequests)
{
    CupsJobWatch::Pace pace;
    pace.Between = hours(1);
    CupsJobWatch watch(pace, nullptr);
    watch.Watch(1);
}

TEST(SilentCupsServer, IsGivenUpAndAskedAgain)
{
    SilentServer silent;
    CupsJobWatch watch(WithPatience(milliseconds(10)), nullptr);
    int seen = 0;
    QObject::connect(&watch, &CupsJobWatch::Seen, [&] { ++seen; });
    watch.Watch(1);
    for (int i = 0; i < 2; ++i)
        silent.NextRequest();
    EXPECT_EQ(seen, 0) << "nothing is known of the job";
}

TEST(SilentCupsServer, ThatAnswersAtLastTellsInPlainWordsWhyAJobFailed)
{
    SilentServer server;
    CupsJobWatch watch(WithPatience(milliseconds(10)), nullptr);
    QString told;
    QObject::connect(&watch, &CupsJobWatch::Seen,
                     [&](int jobId, JobState state, const QString& reason) {
                         EXPECT_EQ(jobId, 7);
                         EXPECT_EQ(state, JobState::Failed);
                         told = reason;
                     });
    watch.Watch(7);
    server.NextRequest();
    while (told.isEmpty()) {
        server.NextRequest()->write(AnswerWithCanceledJob(7));
        ASSERT_TRUE(
            EventsUntil([&] { return !told.isEmpty() || server.Server.hasPendingConnections(); }));
    }
    EXPECT_EQ(told, QStringLiteral("Canceled by user, account limit reached: No cards left"));
}

TEST(SilentCupsServer, ThatTalksNonsenseTellsNothing)
{
    SilentServer server;
    CupsJobWatch watch(WithPatience(milliseconds(10)), nullptr);
    int seen = 0;
    QObject::connect(&watch, &CupsJobWatch::Seen, [&] { ++seen; });
    watch.Watch(1);
    const QByteArray empty = "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\n"
                             "Content-Length: 0\r\n\r\n";
    const QByteArray refusal = "HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n";
    for (const QByteArray& answer : {empty, refusal, QByteArray("nonsense\r\n\r\n")}) {
        QLocalSocket* connection = server.NextRequest();
        connection->write(answer);
        connection->disconnectFromServer();
    }
    server.NextRequest();
    EXPECT_EQ(seen, 0);
}

TEST(SilentCupsServer, IsNotAskedAsLongAsNoJobIsWatched)
{
    SilentServer silent;
    CupsJobWatch watch(WithPatience(hours(1)), nullptr);
    watch.Watch(0);
    QThread::msleep(20);
    QCoreApplication::processEvents();
    EXPECT_FALSE(silent.Server.hasPendingConnections());
    watch.Watch(1);
    silent.NextRequest();
}

} // namespace vantrel::test
