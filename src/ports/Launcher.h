#pragma once

#include <QString>

namespace vantrel {

/// Title of the launcher's window, and file name of its local socket in the program folder.
inline constexpr QLatin1StringView LauncherTitle{"         Launch Pad"};
/// The message that closes the launcher.
inline constexpr QLatin1StringView CloseMessage{"close\n"};

/// Sends the close message to the launcher of the program folder, without waiting for an answer.
/// Does nothing if no launcher is running. Never fails.
void PostCloseToLauncher(const QString& programFolder);

} // namespace vantrel
