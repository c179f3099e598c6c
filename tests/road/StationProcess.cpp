#include "road/StationProcess.h"
#include "support/Events.h"
#include "support/ProcessSignal.h"
#include <QDir>
#include <QProcessEnvironment>
#include <QTcpServer>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

namespace vantrel::test {

namespace {

constexpr int LimitMs = 60000;
constexpr int ListenState = 0x0A;

/// The environment of a machine without a display and without printers of its own.
QProcessEnvironment StationEnvironment(const QString& programFolder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1StringView(name));
    environment.insert(QStringLiteral("VANTREL_HOME"), programFolder);
    environment.insert(QStringLiteral("CUPS_SERVER"), programFolder + QStringLiteral("/no.sock"));
    return environment;
}

/// I-nodes of the sockets a process holds.
QStringList SocketInodes(qint64 pid)
{
    QStringList inodes;
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(pid));
    const auto entries =
        descriptors.entryInfoList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : entries) {
        char target[64] = {};
        const ssize_t length = ::readlink(QFile::encodeName(entry.absoluteFilePath()).constData(),
                                          target, sizeof target - 1);
        const QByteArray link(target, length > 0 ? length : 0);
        if (link.startsWith("socket:["))
            inodes.append(QString::fromLatin1(link.mid(8, link.size() - 9)));
    }
    return inodes;
}

} // namespace

StationProcess::StationProcess(const QString& programFolder, const StationStart& start)
{
    QProcessEnvironment environment = StationEnvironment(programFolder);
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_runtime.path());
    if (start.TellsSkips)
        environment.insert(QStringLiteral("QT_LOGGING_RULES"),
                           QStringLiteral("vantrel.skip.debug=true"));
    for (auto change = start.Environment.begin(); change != start.Environment.end(); ++change)
        environment.insert(change.key(), change.value());
    m_process.setProcessEnvironment(environment);
    if (start.BeforeProgram)
        m_process.setChildProcessModifier(start.BeforeProgram);
    m_process.start(start.Program, start.Arguments);
    EXPECT_TRUE(m_process.waitForStarted(LimitMs));
}

StationProcess::~StationProcess()
{
    if (!IsRunning())
        return;
    m_process.kill();
    m_process.waitForFinished(LimitMs);
}

std::vector<StationProcess::TcpSocket> StationProcess::TcpSockets() const
{
    std::vector<TcpSocket> sockets;
    const QStringList inodes = SocketInodes(m_process.processId());
    for (const char* table : {"/proc/net/tcp", "/proc/net/tcp6"}) {
        QFile file(QString::fromLatin1(table));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray& line : lines) {
            // Number, local address and port, remote ones, state, ..., i-node in tenth place.
            const QList<QByteArray> words = line.simplified().split(' ');
            if (words.size() >= 10 && inodes.contains(QString::fromLatin1(words[9])))
                sockets.push_back({words[1].split(':').last().toInt(nullptr, 16),
                                   words[3].toInt(nullptr, 16) == ListenState});
        }
    }
    return sockets;
}

QStringList StationProcess::ListeningPorts() const
{
    QStringList ports;
    for (const TcpSocket& socket : TcpSockets()) {
        if (socket.Listens)
            ports.append(QString::number(socket.Port));
    }
    ports.removeDuplicates();
    return ports;
}

bool StationProcess::WaitUntilHostsHaveLeft(int port)
{
    return EventsUntil([&] {
        const std::vector<TcpSocket> sockets = TcpSockets();
        return std::none_of(sockets.begin(), sockets.end(), [port](const TcpSocket& socket) {
            return socket.Port == port && !socket.Listens;
        });
    });
}

int StationProcess::OpenDescriptors() const
{
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(m_process.processId()));
    return static_cast<int>(
        descriptors.entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot).size());
}

bool StationProcess::HasOpen(const QString& path) const
{
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(m_process.processId()));
    const QFileInfoList links =
        descriptors.entryInfoList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
    const QStringList targets{path, path + QStringLiteral(" (deleted)")};
    return std::any_of(links.begin(), links.end(), [&targets](const QFileInfo& link) {
        return targets.contains(link.symLinkTarget());
    });
}

int StationProcess::MemoryMiB() const
{
    QFile status(QStringLiteral("/proc/%1/status").arg(m_process.processId()));
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ').value(1).toInt() / 1024;
    }
    return 0;
}

bool StationProcess::WaitUntilItListens(int port)
{
    return EventsUntil(
               [&] { return !IsRunning() || ListeningPorts().contains(QString::number(port)); }) &&
           IsRunning();
}

void StationProcess::SendSignal(int number) const
{
    ASSERT_TRUE(SendSignalTo(m_process, number));
}

int StationProcess::ExitCode()
{
    if (IsRunning() && !m_process.waitForFinished(LimitMs))
        return -1;
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QStringList StationProcess::ErrorLines()
{
    m_errors += m_process.readAllStandardError();
    return QString::fromUtf8(m_errors).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool StationProcess::WaitUntilItTells(const QString& text)
{
    return EventsUntil([&] {
        const QStringList lines = ErrorLines();
        return std::any_of(lines.begin(), lines.end(),
                           [&](const QString& line) { return line.contains(text); });
    });
}

int FreePort()
{
    QTcpServer server;
    EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
    return server.serverPort();
}

QString TextOfPdf(const QString& path)
{
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {path, QStringLiteral("-")});
    EXPECT_TRUE(reader.waitForFinished(LimitMs));
    EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().constData();
    return QString::fromUtf8(reader.readAllStandardOutput()).simplified();
}

} // namespace vantrel::test
