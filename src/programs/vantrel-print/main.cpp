#include "PrintOptions.h"
#include "PrintRun.h"
#include "base/FileModes.h"
#include "base/HarmlessText.h"
#include "drawing/Picture.h"
#include <QCoreApplication>
#include <QDir>
#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace vantrel::print {
namespace {

constexpr int AllPrinted = 0;
constexpr int SomeFailed = 1;
constexpr int NotBegun = 2;
constexpr int Interrupted = 130;
/// A photo is seen once, so the cache only has to keep what all cards share.
constexpr int PictureCacheKiB = 8 * 1024;

std::atomic<bool> stopAsked = false;

/// The first signal lets the rows in hand end, the second one ends at once.
void StopOnSignals()
{
    struct sigaction action = {};
    action.sa_handler = [](int) { stopAsked = true; };
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        ::sigaction(signal, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

void Tell(const QString& line)
{
    std::fprintf(stderr, "vantrel-print: %s\n", qPrintable(HarmlessText(line)));
}

/// The sum of the run in one line.
QString SumOf(const RunEnd& end, const QString& place)
{
    const QString rows =
        end.Printed == 1 ? QStringLiteral("1 row") : QStringLiteral("%1 rows").arg(end.Printed);
    QString sum =
        rows + (place.isEmpty() ? QStringLiteral(" would print") : QStringLiteral(" printed"));
    if (end.Failed > 0)
        sum += QStringLiteral(", %1 failed").arg(end.Failed);
    // Where nothing was printed there may be no file.
    if (!place.isEmpty() && end.Printed > 0)
        sum += QStringLiteral(": ") + place;
    return HarmlessText(sum);
}

void TellHowToGoOn(const RunEnd& end)
{
    const QString next =
        end.NextRow > 0 ? QStringLiteral(" Go on with --first %1.").arg(end.NextRow) : QString();
    if (end.IsInterrupted)
        Tell(QStringLiteral("Interrupted.") + next);
    else if (!end.Trouble.isEmpty())
        Tell(QStringLiteral("Stopped: ") + end.Trouble + next);
}

int RunWith(const PrintOptions& options, RunTools tools)
{
    LimitPictureCache(PictureCacheKiB);
    RunEnd end;
    QString place;
    try {
        Progress progress(!options.IsQuiet);
        PrintRun run(options, std::move(tools), stopAsked, progress);
        place = run.PlaceText();
        end = run.Print();
    } catch (const Failure& failure) {
        Tell(stopAsked ? QStringLiteral("Interrupted.") : ReasonOf(failure));
        return stopAsked ? Interrupted : NotBegun;
    }
    TellHowToGoOn(end);
    if (!options.IsQuiet)
        std::printf("%s\n", qPrintable(SumOf(end, place)));
    if (end.IsInterrupted)
        return Interrupted;
    return end.Failed > 0 || !end.Trouble.isEmpty() ? SomeFailed : AllPrinted;
}

/// Only rows that become files of their own are shared by processes.
bool SharesRows(const PrintOptions& options)
{
    return options.Workers > 1 && options.Place == Place::Folder && !options.IsDryRun;
}

QStringList WordsOf(int argc, char** argv)
{
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    return words;
}

int Main(int argc, char** argv)
{
    int nameOnly = 1;
    const auto makeApplication = [&] { return std::make_unique<QCoreApplication>(nameOnly, argv); };
    const Request request = ReadCommandLine(WordsOf(argc, argv));
    if (!request.Options && request.Mistake.isEmpty()) {
        std::fputs(qPrintable(request.Help), stdout);
        return AllPrinted;
    }
    if (!request.Options) {
        Tell(request.Mistake);
        return NotBegun;
    }
    const PrintOptions& options = *request.Options;
    if (options.File == QStringLiteral("-") && ::isatty(STDIN_FILENO) != 0) {
        Tell(QStringLiteral("FILE is missing, and nothing comes from standard input (see "
                            "vantrel-print --help)"));
        return NotBegun;
    }
    StopOnSignals();
    // Processes start before there is anything that they must not share, but for the locks.
    RunTools tools;
    std::unique_ptr<Workers> workers;
    if (SharesRows(options)) {
        try {
            tools.Locks = std::make_unique<RunLocks>(options);
            workers = std::make_unique<Workers>(options.Workers, [&] {
                static const auto application = makeApplication();
                LimitPictureCache(PictureCacheKiB);
                return MakeWork(options);
            });
        } catch (const Failure& failure) {
            Tell(ReasonOf(failure));
            return NotBegun;
        }
    }
    const auto application = makeApplication();
    tools.Workers = workers.get();
    return RunWith(options, std::move(tools));
}

} // namespace
} // namespace vantrel::print

int main(int argc, char** argv)
{
    vantrel::KeepNewFilesFromOthers();
    return vantrel::print::Main(argc, argv);
}
