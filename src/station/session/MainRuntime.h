#pragma once

#include <QString>

namespace vantrel {

struct LayoutParamsRecord;
struct StationSettings;
class Session;

/// @file What the main window does when it comes, while it stands, and when it goes. The window
/// calls these and mirrors the station's face.

/// The window's place and size in twips.
struct Geometry
{
    int Top = 0;
    int Left = 0;
    int Height = 0;
    int Width = 0;
};

/// "6.0", the running program's version.
QString VersionText();
/// Caption without a layout: " Ostrand Vantrel v6.0" at start, " Vantrel v6.0" once a layout was
/// loaded or closed.
QString StartCaption();
QString PlainCaption();
/// Caption of the command that tells about the program: "About Ostrand Vantrel v6.0".
QString AboutCaption();
/// `caption` with the open layout and its printer behind it.
QString CaptionWithLayout(const QString& layoutName, const LayoutParamsRecord& params,
                          const QString& caption);
/// "Current Printer = " and the printer of the open layout.
QString LayoutStatusText(const LayoutParamsRecord& params);
/// Caption of the command that hides or shows the windows, by the present state.
QString HideCaption(const StationSettings& settings);

/// The load of the main window: caption, ticks, the last layout, the ports. A failing step is
/// passed over.
void LoadMain(Session& session);

/// One look at the status file. @return what the window is to do. Fails with `TypeMismatch` where a
/// value there is no boolean; nothing passes that over.
enum class StatusVerdict { Stay, Unload };
StatusVerdict ReadSessionStatus(Session& session);

/// The two-second tick of the status bar. Lets pending events run.
void TickStatusBar(Session& session);

/// Keeps what the next start needs and takes the notification icon away. `geometry` is none for a
/// minimised window.
void UnloadMain(Session& session, const Geometry* geometry);

} // namespace vantrel
