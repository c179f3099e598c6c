#include "CommandLine.h"
#include "base/Failure.h"
#include "base/FileModes.h"
#include <QCoreApplication>
#include <cstdio>

namespace {
constexpr int ExitFailed = 1;
constexpr int ExitNotUnderstood = 2;

/// Prints a message as one line and returns the exit code.
int EndWith(int code, const QString& message)
{
    std::fprintf(stderr, "vantrel-admin: %s\n", message.simplified().toLocal8Bit().constData());
    return code;
}
} // namespace

int main(int argc, char** argv)
{
    vantrel::KeepNewFilesFromOthers();
    const QCoreApplication application(argc, argv);
    const vantrel::admin::Request request =
        vantrel::admin::ReadCommandLine(QCoreApplication::arguments().mid(1));
    if (!request.Mistake.isEmpty())
        return EndWith(ExitNotUnderstood, request.Mistake);
    if (!request.Help.isEmpty()) {
        std::fputs(request.Help.toLocal8Bit().constData(), stdout);
        return 0;
    }
    try {
        request.Chosen->Run(request.Given);
        return 0;
    } catch (const vantrel::admin::NotUnderstood& mistake) {
        return EndWith(ExitNotUnderstood, mistake.Text + vantrel::admin::HintOfHelp());
    } catch (const vantrel::Failure& failure) {
        return EndWith(ExitFailed, failure.Text());
    }
}
