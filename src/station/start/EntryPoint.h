#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

class Session;

/// What the command line says of a process.
struct CommandLine
{
    std::uint8_t SessionNumber = 1;
    bool OwnsTrayIcon = true;
};

/// A numeric text gives that session, without a notification icon; anything else gives session 1
/// with one. A number that does not fit 8 bits gives session 1 without one.
CommandLine ReadCommandLine(const QString& text);

/// Sets a session up before its main window: who it is, the database, the settings. A failing step
/// is passed over.
void Main(Session& session, const QString& commandLine);

/// Opens the layout database of the program folder. Fails like `Connection::Open`.
void OpenLayoutDb(Session& session);

} // namespace vantrel
