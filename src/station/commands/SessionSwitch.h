#pragma once

#include <QString>

namespace vantrel {

/// Writes to the status file of a program folder whether a session may run. A running session reads
/// the file four times a second and ends in order if it may not. Fails with `InvalidCall` if
/// `session` is not a number from 0 to 255, with `PathNotFound` if the folder does not exist or
/// cannot be written.
void SetSessionActive(const QString& folder, const QString& session, bool active);

} // namespace vantrel
