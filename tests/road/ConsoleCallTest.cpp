#include "road/ConsoleProcess.h"
#include "support/NotifySocket.h"
#include <QFile>
#include <csignal>

// How the console is called, and what it refuses to begin with.

namespace vantrel::test {
namespace {

class ConsoleCall : public ConsoleTest
{
protected:
    static void ExpectMistake(const QStringList& arguments, const char* told)
    {
        const ConsoleEnd end = RunConsole(arguments);
        EXPECT_EQ(end.Code, 2) << arguments.join(u' ').toStdString();
        EXPECT_EQ(end.Out, QString());
        EXPECT_TRUE(end.Errors.startsWith(QStringLiteral("vantrel-console: "))) << told;
        EXPECT_TRUE(end.Errors.contains(QLatin1StringView(told))) << end.Errors.toStdString();
        EXPECT_EQ(end.Errors.count(u'\n'), 1);
    }
};

const QString Listen = QStringLiteral("--listen");
const QString FreePortHere = QStringLiteral("127.0.0.1:0");

TEST_F(ConsoleCall, ThatIsNotUnderstoodEndsWithTwoAndOneLine)
{
    ExpectMistake({}, "one program folder is wanted");
    ExpectMistake({QStringLiteral("a"), QStringLiteral("b")}, "one program folder is wanted");
    ExpectMistake({Folder.path(), QStringLiteral("--port")}, "unknown option --port");
    ExpectMistake({Folder.path(), Listen}, "--listen wants a value");
    for (const char* address :
         {"127.0.0.1", "127.0.0.1:", ":8620", "127.0.0.1:70000", "::1:8620", "localhost:8620"})
        ExpectMistake({Folder.path(), Listen, QString::fromLatin1(address)},
                      "--listen wants an address and a port");
    ExpectMistake({Folder.path(), QStringLiteral("--tls"), QStringLiteral("cert")},
                  "--tls wants two files");
    // As from a script whose variable is empty: never without TLS where somebody wants it.
    ExpectMistake({Folder.path(), QStringLiteral("--tls"), QString(), QStringLiteral("key")},
                  "--tls wants two files");
    ExpectMistake({Folder.path(), QStringLiteral("--tls"), QStringLiteral("cert"), QString()},
                  "--tls wants two files");
}

TEST_F(ConsoleCall, ThatWouldServeOthersWithoutTlsIsRefused)
{
    for (const char* address : {"0.0.0.0:0", "192.0.2.1:0", "[::]:0", "[2001:db8::1]:0"})
        ExpectMistake({Folder.path(), Listen, QString::fromLatin1(address)}, "wants --tls");
}

TEST_F(ConsoleCall, ForHelpAndVersionIsAnswered)
{
    const ConsoleEnd help = RunConsole({QStringLiteral("--help")});
    EXPECT_EQ(help.Code, 0);
    EXPECT_TRUE(help.Out.startsWith(QStringLiteral("Usage: vantrel-console DIR")));
    const ConsoleEnd version = RunConsole({QStringLiteral("--version")});
    EXPECT_EQ(version.Code, 0);
    EXPECT_TRUE(version.Out.startsWith(QStringLiteral("vantrel-console ")));
}

TEST_F(ConsoleCall, OnAFolderWithoutALedgerEndsWithOneAndTheReason)
{
    const QTemporaryDir empty;
    const ConsoleEnd missing = RunConsole({empty.path()});
    EXPECT_EQ(missing.Code, 1);
    EXPECT_EQ(missing.Errors.count(u'\n'), 1);
    MakeProgramFolder(empty.path());
    const ConsoleEnd without = RunConsole({empty.path(), Listen, FreePortHere});
    EXPECT_EQ(without.Code, 1);
    EXPECT_TRUE(without.Errors.contains(QStringLiteral("There is no ledger in ")));
}

TEST_F(ConsoleCall, ThatCannotListenEndsWithOneAndTheReason)
{
    Start();
    const ConsoleEnd end =
        RunConsole({Folder.path(), Listen, QStringLiteral("127.0.0.1:%1").arg(Port())});
    EXPECT_EQ(end.Code, 1);
    EXPECT_TRUE(end.Errors.contains(QStringLiteral("cannot listen on 127.0.0.1, port")))
        << end.Errors.toStdString();
}

TEST_F(ConsoleCall, WithFilesThatAreNoCertificateEndsWithOneAndTheReason)
{
    QFile file(Folder.filePath(QStringLiteral("no.pem")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a certificate");
    file.close();
    const ConsoleEnd end = RunConsole({Folder.path(), Listen, FreePortHere, QStringLiteral("--tls"),
                                       file.fileName(), file.fileName()});
    EXPECT_EQ(end.Code, 1);
    EXPECT_TRUE(end.Errors.contains(QStringLiteral("certificate"))) << end.Errors.toStdString();
    const ConsoleEnd missing = RunConsole(
        {Folder.path(), QStringLiteral("--tls"), QStringLiteral("none"), QStringLiteral("none")});
    EXPECT_EQ(missing.Code, 1);
}

TEST_F(ConsoleCall, TellsWhereItIsAndWhereItsTokenIs)
{
    Start();
    EXPECT_EQ(Console->Told(), QStringLiteral("The console is at http://127.0.0.1:%1/\n"
                                              "Its token is in %2/Console.token\n")
                                   .arg(Port())
                                   .arg(Folder.path())
                                   .toUtf8());
    EXPECT_EQ(Token().size(), 64);
}

TEST_F(ConsoleCall, EndsInOrderWhenItIsTold)
{
    Start();
    HttpClient waiting(Port());
    HttpClient half(Port());
    half.Send("GET /api/v1/records HTTP/1.1\r\nHost:");
    EXPECT_EQ(Get("/healthz").Status, 503);
    Console->SendSignal(SIGTERM);
    EXPECT_EQ(Console->ExitCode(), 0);
}

TEST_F(ConsoleCall, OfAServiceManagerTellsThatItServesLivesAndEnds)
{
    NotifySocket manager;
    Console = std::make_unique<ConsoleProcess>(
        Folder.path(), QStringList(),
        QMap<QString, QString>{{QStringLiteral("NOTIFY_SOCKET"), manager.Path()},
                               {QStringLiteral("WATCHDOG_USEC"), QStringLiteral("100000")}});
    ASSERT_TRUE(manager.WaitUntilTold("READY=1"));
    EXPECT_TRUE(manager.Told().contains(
        "STATUS=Serves http://127.0.0.1:" + QByteArray::number(Port()) + '/'));
    EXPECT_TRUE(manager.WaitUntilTold("WATCHDOG=1", 2));
    EXPECT_FALSE(manager.Told().contains("STOPPING=1"));
    Console->SendSignal(SIGTERM);
    EXPECT_TRUE(manager.WaitUntilTold("STOPPING=1"));
    EXPECT_EQ(Console->ExitCode(), 0);
}

TEST_F(ConsoleCall, OverTlsSpeaksNothingElse)
{
    const QString key = Folder.filePath(QStringLiteral("key.pem"));
    const QString certificate = Folder.filePath(QStringLiteral("cert.pem"));
    QProcess maker;
    maker.start(QStringLiteral("openssl"),
                {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"),
                 QStringLiteral("ec"), QStringLiteral("-pkeyopt"),
                 QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"),
                 QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-subj"),
                 QStringLiteral("/CN=localhost"), QStringLiteral("-keyout"), key,
                 QStringLiteral("-out"), certificate});
    ASSERT_TRUE(maker.waitForFinished());
    ASSERT_EQ(maker.exitCode(), 0) << maker.readAllStandardError().constData();
    Start({QStringLiteral("--tls"), certificate, key});
    EXPECT_TRUE(Console->Told().startsWith("The console is at https://127.0.0.1:"));

    QProcess curl;
    curl.start(QStringLiteral("curl"),
               {QStringLiteral("--silent"), QStringLiteral("--insecure"),
                QStringLiteral("--http1.1"), QStringLiteral("--include"), QStringLiteral("--data"),
                QStringLiteral("{\"token\": \"%1\"}").arg(QString::fromUtf8(Token())),
                QStringLiteral("--header"), QStringLiteral("Content-Type: application/json"),
                QStringLiteral("https://127.0.0.1:%1/login").arg(Port())});
    ASSERT_TRUE(curl.waitForFinished());
    const QByteArray answer = curl.readAllStandardOutput();
    EXPECT_TRUE(answer.startsWith("HTTP/1.1 204")) << answer.toStdString();
    EXPECT_TRUE(answer.contains("Set-Cookie: __Host-vantrel-")) << answer.toStdString();
    EXPECT_TRUE(answer.contains("; Secure")) << answer.toStdString();

    HttpClient plain(Port());
    plain.Send(RequestText("GET", "/healthz"));
    EXPECT_EQ(plain.Receive().Status, 0);
}

} // namespace
} // namespace vantrel::test
