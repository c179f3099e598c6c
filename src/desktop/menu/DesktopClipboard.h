#pragma once

class QMainWindow;

namespace vantrel {

class Session;

/// @file The commands that bring objects to the clipboard and back, for a station with design
/// tools. A text that another program has copied becomes a static text.

void CutCommand(Session& session, QMainWindow& window);
void CopyCommand(Session& session, QMainWindow& window);
void PasteCommand(Session& session, QMainWindow& window);

} // namespace vantrel
