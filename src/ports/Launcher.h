#pragma once

#include <QString>

namespace vantrel {

/// Title of the launcher's window, and the name of the local socket it listens on in the program
/// folder.
inline constexpr QLatin1StringView LauncherTitle{"         Launch Pad"};
/// What a station sends there to close it.
inline constexpr QLatin1StringView CloseMessage{"close\n"};

/// Asks the launcher of that program folder to close. Does nothing where none is running; never
/// fails and waits for no answer.
void PostCloseToLauncher(const QString& programFolder);

} // namespace vantrel
