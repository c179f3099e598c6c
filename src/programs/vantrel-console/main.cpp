#include "ConsoleOptions.h"
#include "base/Failure.h"
#include "base/FileModes.h"
#include "base/HarmlessText.h"
#include "console/Console.h"
#include "programs/vantrel/StopSignals.h"
#include "service/ServiceManager.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <sys/resource.h>

namespace vantrel::console {
namespace {

constexpr int ExitFailed = 1;
constexpr int ExitNotUnderstood = 2;

int EndWith(int code, const QString& message)
{
    std::fprintf(stderr, "vantrel-console: %s\n", qPrintable(HarmlessText(message)));
    return code;
}

/// Allows as many connections as the system does.
void RaiseFileLimit()
{
    constexpr rlim_t wanted = 4096;
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= wanted)
        return;
    limit.rlim_cur = std::min(limit.rlim_max, wanted);
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

/// Lets the stations of the machine go first.
void StepBack()
{
    constexpr int niceness = 5;
    ::setpriority(PRIO_PROCESS, 0, niceness);
}

QByteArray ContentsOf(const QString& path)
{
    constexpr qint64 longest = qint64{1024} * 1024;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(FailureNumber::FileNotFound,
                      path + QStringLiteral(": ") + file.errorString());
    QByteArray bytes = file.read(longest);
    if (bytes.isEmpty())
        throw Failure(FailureNumber::FileNotFound, path + QStringLiteral(" is empty."));
    return bytes;
}

QString AddressOf(const ListenTerms& terms, quint16 port)
{
    const QString address = terms.Address.toString();
    return QStringLiteral("%1://%2:%3/")
        .arg(terms.IsSecure() ? QStringLiteral("https") : QStringLiteral("http"),
             address.contains(u':') ? u'[' + address + u']' : address)
        .arg(port);
}

int Serve(const ConsoleOptions& options)
{
    const QString folder = QDir(options.Folder).absolutePath();
    ListenTerms terms = options.Listen;
    if (!options.Certificate.isEmpty()) {
        terms.Certificate = ContentsOf(options.Certificate);
        terms.Key = ContentsOf(options.Key);
    }
    ServiceManager manager;
    const Console console(folder, terms);
    std::printf("The console is at %s\nIts token is in %s\n",
                qPrintable(AddressOf(terms, console.Port())),
                qPrintable(QDir(folder).filePath(QLatin1StringView(TokenFileName))));
    std::fflush(stdout);
    const StopSignals signals;
    QObject::connect(&signals, &StopSignals::Asked, &manager, [&manager] {
        manager.TellEnding();
        QCoreApplication::quit();
    });
    manager.TellStatus(QStringLiteral("Serves %1").arg(AddressOf(terms, console.Port())));
    manager.TellReady();
    return QCoreApplication::exec();
}

int Main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const OptionsRequest request = ReadCommandLine(QCoreApplication::arguments().mid(1));
    if (!request.Mistake.isEmpty())
        return EndWith(ExitNotUnderstood, request.Mistake);
    if (!request.Help.isEmpty()) {
        std::fputs(qPrintable(request.Help), stdout);
        return 0;
    }
    try {
        return Serve(*request.Options);
    } catch (const Failure& failure) {
        return EndWith(ExitFailed, failure.Text());
    }
}

} // namespace
} // namespace vantrel::console

int main(int argc, char** argv)
{
    vantrel::KeepNewFilesFromOthers();
    vantrel::console::RaiseFileLimit();
    vantrel::console::StepBack();
    std::signal(SIGPIPE, SIG_IGN);
    return vantrel::console::Main(argc, argv);
}
