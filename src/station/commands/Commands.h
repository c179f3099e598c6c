#pragma once

namespace vantrel {

class Session;

/// @file What the commands of the main window do. Those that need an open layout do nothing without
/// one. A command passes over no failing step: what fails reaches its caller and ends the station.

/// Prints the open layout, then pours the last record into the page again.
void PrintCommand(Session& session);
/// Saves the page on the form and tells the operator so.
void SaveCommand(Session& session);
/// Asks for a name and begins a layout of that name. An empty answer changes nothing; a failing
/// step is passed over.
void NewCommand(Session& session);
/// Asks, then deletes the open layout. A failing step is passed over.
void DeleteLayoutCommand(Session& session);
/// Begins a new page behind the last one. Does nothing without a layout.
void NewPageCommand(Session& session);
/// Deletes the page on the form, if the operator agrees. Does nothing without a layout.
void DeletePageCommand(Session& session);
/// Ends the open layout without asking.
void CloseCommand(Session& session);

/// Flips whether a record prints the open layout by itself; the layout keeps it at once. Fails like
/// `SaveLayoutParams`.
void ToggleAutoSpool(Session& session);
/// Flips whether the next record makes its own data fields.
void ToggleDynamicFields(Session& session);
/// Flips a stored tick that capture does not look at.
void ToggleDynamicLayouts(Session& session);
/// Flips whether a start opens the ports, and applies the port settings anew. The ports themselves
/// go by their own settings.
void ToggleCapture(Session& session);

/// Shows or hides the station's windows; with a layout open its document is shown with them. The
/// state is told through the station's face and stored.
void ToggleVisible(Session& session);

/// Asks whether the station is to end. On yes, session 0 or 1 closes the launcher too, and the main
/// window is told to unload through the station's face.
void ExitCommand(Session& session);

} // namespace vantrel
