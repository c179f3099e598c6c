#include "ports/Launcher.h"
#include <QLocalSocket>

namespace vantrel {

namespace {
/// A launcher on the same machine accepts the connection at once or not at all.
constexpr int WaitMilliseconds = 500;
} // namespace

void PostCloseToLauncher(const QString& programFolder)
{
    QLocalSocket launcher;
    launcher.connectToServer(programFolder + QLatin1Char('/') + LauncherTitle);
    if (!launcher.waitForConnected(WaitMilliseconds))
        return;
    launcher.write(CloseMessage.data(), CloseMessage.size());
    launcher.waitForBytesWritten(WaitMilliseconds);
    launcher.disconnectFromServer();
}

} // namespace vantrel
