#pragma once

namespace vantrel {

class Session;

/// @file The commands of the main window. Commands that need an open layout do nothing without one.
/// Unless stated otherwise, a failure in a command is thrown to its caller and ends the station.

/// Prints the open layout, then fills the last record into the page again.
void PrintCommand(Session& session);
/// Saves the page in memory and reports it to the operator.
void SaveCommand(Session& session);
/// Asks for a name and starts a new layout. An empty answer changes nothing; a failing step is
/// skipped.
void NewCommand(Session& session);
/// Asks for confirmation, then deletes the open layout. A failing step is skipped.
void DeleteLayoutCommand(Session& session);
/// Starts a new page after the last one. Does nothing without a layout.
void NewPageCommand(Session& session);
/// Deletes the page in memory after confirmation. Does nothing without a layout.
void DeletePageCommand(Session& session);
/// Closes the open layout without saving and without confirmation.
void CloseCommand(Session& session);

/// Toggles automatic printing of records for the open layout and stores it at once. Fails like
/// `SaveLayoutParams`.
void ToggleAutoSpool(Session& session);
/// Toggles whether the next record creates its own data fields.
void ToggleDynamicFields(Session& session);
/// Toggles a stored setting that has no effect on capture.
void ToggleDynamicLayouts(Session& session);
/// Toggles whether ports are opened at the start, and applies the port settings again. Those do not
/// depend on this toggle.
void ToggleCapture(Session& session);

/// Shows or hides the station's windows and stores the state. If a layout is open, its document is
/// shown with them.
void ToggleVisible(Session& session);

/// Asks whether the station should end. On yes, it signals `ExitConfirmed`, which unloads the main
/// window; session 0 or 1 also closes the launcher.
void ExitCommand(Session& session);

} // namespace vantrel
