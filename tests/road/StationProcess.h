#pragma once

#include "road/TestedProgram.h"
#include <QMap>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <vector>

namespace vantrel::test {

/// How a station is started, where that differs from the usual way.
struct StationStart
{
    QStringList Arguments = {};
    /// Whether it writes each step that it passes over to stderr.
    bool TellsSkips = false;
    /// Environment variables besides those of a machine without a display and without printers.
    QMap<QString, QString> Environment = {};
    /// Runs in the new process before the program begins, such as a limit on what it may take.
    std::function<void()> BeforeProgram = {};
    /// Another program that becomes the station, such as the start script.
    QString Program = TestedProgram(VANTREL_PROGRAM);
};

/// The built station program on a program folder of the test's, without a display and without the
/// machine's printers. It is ended with the test.
class StationProcess
{
public:
    explicit StationProcess(const QString& programFolder, const StationStart& start = {});
    ~StationProcess();
    StationProcess(const StationProcess&) = delete;
    StationProcess& operator=(const StationProcess&) = delete;

    /// Lets it run until it listens on that port. @return whether it does
    bool WaitUntilItListens(int port);
    /// The TCP ports the process listens on.
    QStringList ListeningPorts() const;
    /// Waits until no host that the process has accepted is there any more. What the last one sent
    /// is dropped with it, and so is what another sends before that.
    bool WaitUntilHostsHaveLeft(int port);
    /// How many files, sockets and the like it holds open.
    int OpenDescriptors() const;
    /// Whether it holds the file or device of that path open, even if it has been removed since.
    bool HasOpen(const QString& path) const;
    /// Its resident memory.
    int MemoryMiB() const;
    qint64 Id() const { return m_process.processId(); }
    bool IsRunning() const { return m_process.state() == QProcess::Running; }
    void SendSignal(int number) const;
    /// Waits for its end. @return its exit code, or -1 where it crashed or goes on
    int ExitCode();
    /// What it has written to stderr so far, line by line.
    QStringList ErrorLines();
    /// Lets it run until a line on stderr contains this. @return whether one came
    bool WaitUntilItTells(const QString& text);

private:
    struct TcpSocket
    {
        int Port;
        bool Listens;
    };
    std::vector<TcpSocket> TcpSockets() const;

    /// Where Qt keeps what belongs to the running user.
    QTemporaryDir m_runtime;
    QProcess m_process;
    QByteArray m_errors;
};

/// A port that was free a moment ago.
int FreePort();

/// The text of a PDF, its lines and blanks simplified.
QString TextOfPdf(const QString& path);

} // namespace vantrel::test
