#include "app/EntryPoint.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "platform/Convert.h"
#include "platform/Schema.h"
#include "platform/Skip.h"

namespace vantrel {

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
    session.LayoutDb.Open(session.PathInFolder(QLatin1StringView(LayoutDatabaseName)));
}

void Main(Session& session, const QString& commandLine)
{
    const CommandLine line = ReadCommandLine(commandLine);
    session.SessionNumber = line.SessionNumber;
    session.OwnsTrayIcon = line.OwnsTrayIcon;
    session.FieldValues = FieldValues();
    Skip("open layout database", [&] { OpenLayoutDb(session); });
    LoadSettings(session);
    session.RecordQueue = VT5_BufferedRecordQue();
}

} // namespace vantrel
