#pragma once

class QMainWindow;

namespace vantrel {

class Session;

/// @file The commands that ask for a file or for the workspace's colour. They share the main
/// window's file dialog with the values it had before. The commands for the page's back image do
/// nothing without a layout.

void ImportVersion4Command(Session& session, QMainWindow& window);
void BackImageCommand(Session& session, QMainWindow& window);
void AcrobatBackImageCommand(Session& session, QMainWindow& window);
void ChooseImageCommand(Session& session, QMainWindow& window);
void WorkspaceColorCommand(Session& session, QMainWindow& window);
void WorkspacePictureCommand(Session& session, QMainWindow& window);

} // namespace vantrel
