#pragma once

#include <QString>

namespace vantrel {

/// Lets a numbered session of a program folder run, or tells the one that runs to end in order; it
/// reads this four times a second. Fails with `InvalidCall` for a text that is no number from 0 to
/// 255, with `PathNotFound` where the folder is not there or cannot be written.
void SetSessionActive(const QString& folder, const QString& session, bool active);

} // namespace vantrel
