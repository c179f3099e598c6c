#pragma once

#include <QString>

namespace vantrel {

/// Describes every key of the settings files, as Markdown. Keys and defaults of a session are taken
/// from the table by which they are read.
QString SettingsGuide();

} // namespace vantrel
