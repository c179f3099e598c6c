#pragma once

#include <QString>

class QWidget;

namespace vantrel {

/// Asks for a picture file: only files of the kinds that a card can show are listed, with a preview
/// of the one that is chosen. It begins in the folder that was used last.
namespace DesktopPictureDialog {

/// Shows the dialog over a window and waits.
/// @param folder  where it begins the first time
/// @return the path of the file; empty if cancelled
QString Ask(QWidget& window, const QString& folder);

} // namespace DesktopPictureDialog

/// The folder that a picture was chosen from last, by this user; empty if none was, or if it is
/// gone.
QString PictureFolder();

} // namespace vantrel
