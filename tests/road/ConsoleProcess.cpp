#include "road/ConsoleProcess.h"
#include "base/Profile.h"
#include "road/TestedProgram.h"
#include "station/session/StoreLocation.h"
#include "support/ProcessSignal.h"
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <csignal>

namespace vantrel::test {

namespace {
/// Only ends a test that has failed.
constexpr int LimitMs = 60'000;
} // namespace

ConsoleProcess::ConsoleProcess(const QString& programFolder, const QStringList& options,
                               const QMap<QString, QString>& environment)
{
    QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    for (auto variable = environment.cbegin(); variable != environment.cend(); ++variable)
        all.insert(variable.key(), variable.value());
    m_process.setProcessEnvironment(all);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QStringList arguments{programFolder};
    if (!options.contains(QStringLiteral("--listen")))
        arguments += {QStringLiteral("--listen"), QStringLiteral("127.0.0.1:0")};
    m_process.start(TestedProgram(VANTREL_CONSOLE_PROGRAM), arguments + options);
    while (m_told.count('\n') < 2 && m_process.waitForReadyRead(LimitMs))
        m_told += m_process.readAllStandardOutput();
    static const QRegularExpression port(QStringLiteral(":([0-9]+)/"));
    m_port = port.match(QString::fromUtf8(m_told)).captured(1).toInt();
    EXPECT_GT(m_port, 0) << m_told.toStdString();
}

ConsoleProcess::~ConsoleProcess()
{
    m_process.kill();
    m_process.waitForFinished(LimitMs);
}

int ConsoleProcess::MemoryMiB() const
{
    QFile status(QStringLiteral("/proc/%1/status").arg(m_process.processId()));
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    static const QRegularExpression resident(QStringLiteral("VmRSS:\\s+([0-9]+)"));
    return resident.match(QString::fromUtf8(status.readAll())).captured(1).toInt() / 1024;
}

int ConsoleProcess::OpenDescriptors() const
{
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(m_process.processId()));
    return static_cast<int>(
        descriptors.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

void ConsoleProcess::SendSignal(int number) const
{
    SendSignalTo(m_process, number);
}

int ConsoleProcess::ExitCode()
{
    if (IsRunning() && !m_process.waitForFinished(LimitMs))
        return -1;
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

ConsoleEnd RunConsole(const QStringList& arguments)
{
    QProcess program;
    program.start(TestedProgram(VANTREL_CONSOLE_PROGRAM), arguments);
    EXPECT_TRUE(program.waitForFinished(LimitMs));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

ConsoleTest::ConsoleTest()
{
    MakeProgramFolder(Folder.path());
    if (StoresAreOnServer()) {
        m_shared.emplace(Folder.path());
        EXPECT_TRUE(WriteProfileValue(Folder.filePath(QStringLiteral("Vantrel 6.ini")),
                                      QStringLiteral("Store"), QStringLiteral("Database"),
                                      m_shared->Location()));
    }
    Store.Open(StoreLocation(Folder.path()));
    MakeLedgerTables(Database());
}

void ConsoleTest::Start(const QStringList& options)
{
    Console = std::make_unique<ConsoleProcess>(Folder.path(), options);
}

QByteArray ConsoleTest::Token() const
{
    QFile file(Folder.filePath(QStringLiteral("Console.token")));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().trimmed();
}

HttpHeaders ConsoleTest::LogIn()
{
    const HttpAnswer login = Ask(Port(), "POST", "/login", {{"Content-Type", "application/json"}},
                                 "{\"token\": \"" + Token() + "\"}");
    EXPECT_EQ(login.Status, 204);
    const QByteArray cookie = login.Header("set-cookie");
    const HttpHeaders headers{{"Cookie", cookie.left(cookie.indexOf(';'))}};
    const HttpAnswer shown = Ask(Port(), "GET", "/login", headers);
    const QByteArray token = shown.Json()[u"forgery_token"].toString().toUtf8();
    EXPECT_EQ(token.size(), 64);
    return {{"Cookie", headers.at("Cookie")}, {"X-Forgery-Token", token}};
}

} // namespace vantrel::test
