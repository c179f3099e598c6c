#pragma once

#include "base/Color.h"
#include <QString>

namespace vantrel {

struct StationSettings;
class Session;

/// @file The background of the main window, which is stored as a setting.

/// Sets and stores a background colour. Pure black is stored as 0 and shown as colour 1.
void SetWorkspaceColor(Session& session, ColorValue color);
/// Sets a picture file as the background and stores its path. A missing file changes nothing; for a
/// file that is not a picture the path is stored, but the earlier picture stays.
void SetWorkspacePicture(Session& session, const QString& path);
/// Restores the default background of the desktop.
void ResetWorkspace(Session& session);

/// The present background colour, as the initial value of a dialog; black if there is none.
ColorValue WorkspaceColor(const StationSettings& settings);

} // namespace vantrel
