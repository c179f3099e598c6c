#pragma once

#include <QString>

namespace vantrel {

struct LayoutParamsRecord;
struct StationSettings;
class Session;

/// @file What the main window does on load, periodically and on unload. The window calls these
/// functions and shows the state in `StationFace`.

/// Position and size of the window in twips.
struct Geometry
{
    int Top = 0;
    int Left = 0;
    int Height = 0;
    int Width = 0;
};

/// The program's version, such as "6.0".
QString VersionText();
/// Captions without a layout: " Ostrand Vantrel v6.0" at the start, " Vantrel v6.0" after a layout
/// was loaded or closed.
QString StartCaption();
QString PlainCaption();
/// Caption of the About command: "About Ostrand Vantrel v6.0".
QString AboutCaption();
/// `caption` followed by the open layout and its printer.
QString CaptionWithLayout(const QString& layoutName, const LayoutParamsRecord& params,
                          const QString& caption);
/// "Current Printer = " and the printer of the open layout.
QString LayoutStatusText(const LayoutParamsRecord& params);
/// Caption of the command that hides or shows the windows, for the present state.
QString HideCaption(const StationSettings& settings);

/// Called when the main window loads: sets caption and ticks, opens the last layout and the ports.
/// A failing step is skipped.
void LoadMain(Session& session);

/// Reads the status file and shows or hides the windows accordingly. @return whether the window
/// must unload. Fails with `TypeMismatch` if a value there is not a boolean; this failure is not
/// skipped and ends the station.
enum class StatusVerdict { Stay, Unload };
StatusVerdict ReadSessionStatus(Session& session);

/// Updates the status bar; called every two seconds. Runs pending events.
void TickStatusBar(Session& session);

/// Called when the main window unloads: takes no further record from inputs of their own, stores
/// the settings for the next start and removes the notification icon. `geometry` is null for a
/// minimised window.
void UnloadMain(Session& session, const Geometry* geometry);

} // namespace vantrel
