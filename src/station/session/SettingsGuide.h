#pragma once

#include <QString>

namespace vantrel {

/// Tells every key of the settings files, as Markdown. Keys and defaults of a session come from the
/// table they are read by, so that what is told is what is read.
QString SettingsGuide();

} // namespace vantrel
