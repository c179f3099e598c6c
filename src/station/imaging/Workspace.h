#pragma once

#include "base/Color.h"
#include <QString>

namespace vantrel {

struct StationSettings;
class Session;

/// @file The main window's own background, which decorates the workspace and is kept as a setting.

/// Paints the workspace in a colour and keeps it. Pure black is kept as 0 and shown as the colour
/// 1, one step away.
void SetWorkspaceColor(Session& session, ColorValue color);
/// Paints the workspace with a picture file and keeps its path. A file that is missing changes
/// nothing; one that is no picture leaves the earlier picture, but its path is kept.
void SetWorkspacePicture(Session& session, const QString& path);
/// Gives the workspace the look of the desktop again.
void ResetWorkspace(Session& session);

/// The colour that the workspace has at present, for a dialog to begin with; black where it has
/// none.
ColorValue WorkspaceColor(const StationSettings& settings);

} // namespace vantrel
