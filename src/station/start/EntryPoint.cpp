#include "station/start/EntryPoint.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "station/ledger/StationLedger.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include "station/session/StoreLocation.h"
#include <QDir>
#include <QLoggingCategory>

namespace vantrel {

namespace {
Q_LOGGING_CATEGORY(stationLog, "vantrel.station")
}

CommandLine ReadCommandLine(const QString& text)
{
    CommandLine line;
    if (!IsNumeric(text))
        return line;
    line.OwnsTrayIcon = false;
    Skip("session number", [&] { line.SessionNumber = ToByte(text); });
    return line;
}

void OpenLayoutDb(Session& session)
{
    session.LayoutDb.Open(StoreLocation(session.ProgramFolder));
}

QString ImagesFolder(const Session& session)
{
    const QString& folder = session.Options.ImagesFrom;
    return folder.isEmpty() ? QString() : QDir(session.ProgramFolder).filePath(folder);
}

void Main(Session& session, const QString& commandLine)
{
    const CommandLine line = ReadCommandLine(commandLine);
    session.SessionNumber = line.SessionNumber;
    session.OwnsTrayIcon = line.OwnsTrayIcon;
    session.FieldValues = FieldValues();
    QStringList mistakes;
    session.Options = ReadStationOptions(session.ProgramFolder, mistakes);
    for (const QString& mistake : std::as_const(mistakes))
        qCWarning(stationLog).noquote() << mistake;
    session.Pictures.Folder = ImagesFolder(session);
    Skip("open layout database", [&] { OpenLayoutDb(session); });
    OpenLedger(session);
    LoadSettings(session);
    session.RecordQueue = VT5_BufferedRecordQue();
}

} // namespace vantrel
