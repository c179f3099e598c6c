#include "base/FileModes.h"
#include "desktop/camera/frmAquireImage2.h"
#include "desktop/camera/frmTakePhoto.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopStyle.h"
#include "desktop/controls/RunTimeError.h"
#include "desktop/window/DesktopOperator.h"
#include "desktop/window/frmMain.h"
#include "printers/StationPrinters.h"
#include "programs/vantrel/StopSignals.h"
#include "service/ServiceManager.h"
#include "station/ledger/OutcomeFields.h"
#include "station/session/Session.h"
#include "station/session/UnattendedOperator.h"
#include "station/start/EntryPoint.h"
#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <cstdio>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace vantrel {
namespace {

constexpr QLatin1StringView NoDisplayPlatform{"offscreen"};

/// Makes freed large buffers return to the system. By default glibc raises its mmap threshold after
/// one large buffer and then keeps later ones in its heap.
void KeepLargeBuffersOutOfTheHeap()
{
#ifdef __GLIBC__
    constexpr int largeBytes = 4 << 20;
    constexpr int freeTopBytes = 8 << 20;
    ::mallopt(M_MMAP_THRESHOLD, largeBytes);
    ::mallopt(M_TRIM_THRESHOLD, freeTopBytes);
#endif
}

/// Selects the offscreen platform on a machine without a display.
void ChoosePlatform()
{
    const bool hasDisplay =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!hasDisplay && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", NoDisplayPlatform.data());
}

/// The command line as one text, without the program's name.
QString CommandLineText(int argc, char** argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    return words.join(QLatin1Char(' '));
}

/// The program folder. Fails with `PathNotFound` if the environment variable names a folder that
/// does not exist.
QString FindProgramFolder()
{
    const QString home = qEnvironmentVariable("VANTREL_HOME");
    if (home.isEmpty())
        return QCoreApplication::applicationDirPath();
    if (!QFileInfo(home).isDir()) {
        throw Failure(FailureNumber::PathNotFound,
                      QStringLiteral("VANTREL_HOME is no folder: ") + home);
    }
    return QDir(home).absolutePath();
}

/// Tells a service manager what the station is about. Its status is the state of the ports.
void FollowAsService(ServiceManager& manager, const Session& session, const frmMain& window)
{
    const auto tellStatus = [&] { manager.TellStatus(session.Face.StatusPanel(1).Text); };
    tellStatus();
    QObject::connect(&session.Face, &StationFace::PanelChanged, &manager, [=](int number) {
        if (number == 1)
            tellStatus();
    });
    QObject::connect(&window, &frmMain::Loaded, &manager, &ServiceManager::TellReady);
    QObject::connect(&window, &frmMain::Unloading, &manager, &ServiceManager::TellEnding);
}

/// Makes the outcome of each record a line of the journal, if that has the station's log.
void FollowInJournal(RecordLedger& ledger)
{
    if (!IsLogTheJournal())
        return;
    ledger.OnOutcome([](const LedgerEntry& entry) {
        // The ledger has the outcome also where the journal does not take it.
        static_cast<void>(
            WriteToJournal(OutcomeFields(entry, QDateTime::currentMSecsSinceEpoch())));
    });
}

int RunStation(const QString& commandLine)
{
    // 1. The program folder and the session number.
    const QString folder = FindProgramFolder();
    const int sessionNumber = ReadCommandLine(commandLine).SessionNumber;

    // 2. The printers and the operator.
    StationPrinters printers(folder, sessionNumber);
    DesktopOperator desktopOperator;
    UnattendedOperator unattendedOperator;
    const bool attended = QGuiApplication::platformName() != NoDisplayPlatform;
    Operator& stationOperator = attended ? static_cast<Operator&>(desktopOperator)
                                         : static_cast<Operator&>(unattendedOperator);

    // 3. The session: number, database, settings.
    Session session(folder, stationOperator, printers);
    Main(session, commandLine);
    printers.SetDurableFiles(session.Options.Ledger);

    // 4. The main window. It loads inside the event loop, so that the station can also be ended
    // during the load.
    frmMain window(session, attended ? Display::Present : Display::Absent);
    desktopOperator.SetMainWindow(&window);
    desktopOperator.SetCameraDialog([&] {
        if (session.Options.DesignTools)
            OpenDialog<frmTakePhoto>(session, &window);
        else
            OpenDialog<frmAquireImage2>(session, &window);
    });
    QMetaObject::invokeMethod(&window, &frmMain::Load, Qt::QueuedConnection);

    // 5. The service manager and the journal.
    ServiceManager manager;
    FollowAsService(manager, session, window);
    FollowInJournal(session.Ledger);

    // 6. SIGTERM and SIGINT unload the main window in order.
    const StopSignals stopSignals;
    QObject::connect(&stopSignals, &StopSignals::Asked, &window, &frmMain::Unload);

    // 7. The event loop.
    return QCoreApplication::exec();
}

} // namespace
} // namespace vantrel

int main(int argc, char** argv)
{
    vantrel::KeepNewFilesFromOthers();
    vantrel::KeepLargeBuffersOutOfTheHeap();
    vantrel::ChoosePlatform();
    // Qt gets the program's name only, because the station parses the whole command line itself.
    int nameOnly = 1;
    QApplication application(nameOnly, argv);
    // The title of the notification icon. A display name would be put behind every caption.
    QApplication::setApplicationName(QStringLiteral("Vantrel"));
    vantrel::DesktopStyle::Install();
    // A station with hidden windows keeps running.
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        return vantrel::RunStation(vantrel::CommandLineText(argc, argv));
    } catch (const vantrel::Failure& failure) {
        vantrel::TellRunTimeError(failure);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "vantrel: %s\n", problem.what());
    }
    return vantrel::FailedExit;
}
