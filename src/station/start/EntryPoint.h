#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

class Session;

/// The session number and options of a command line.
struct CommandLine
{
    std::uint8_t SessionNumber = 1;
    bool OwnsTrayIcon = true;
};

/// Parses a command line. A number selects that session, without a notification icon; any other
/// text selects session 1 with the icon. A number that does not fit 8 bits selects session 1
/// without the icon. Never fails.
CommandLine ReadCommandLine(const QString& text);

/// Initializes a session before its main window: session number, database and settings. A failing
/// step is skipped.
void Main(Session& session, const QString& commandLine);

/// The folder of the pictures that records name, by the session's options; empty for none.
QString ImagesFolder(const Session& session);

/// Opens the layout database of the program folder. Fails like `Connection::Open`.
void OpenLayoutDb(Session& session);

} // namespace vantrel
