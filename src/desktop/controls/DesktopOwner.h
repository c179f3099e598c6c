#pragma once

class QDialog;
class QWidget;

namespace vantrel {

/// The window to which a box that is about to open belongs: the active one, or the modal one while
/// the operator works in another program; none where there is neither.
QWidget* WindowInUse();

/// Makes a box belong to a window, if there is one: a window manager keeps the box above that
/// window and gives the keyboard back to the window afterwards. The box's parent still owns it. To
/// be called when all flags of the box are set.
void BelongTo(QDialog& box, const QWidget* window);

} // namespace vantrel
