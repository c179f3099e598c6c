#pragma once

class QDialog;
class QWidget;

namespace vantrel {

/// The window that a box about to open comes from: the one an operator works in, or the one that
/// holds the others up while the operator works in another program; none where there is neither.
QWidget* WindowInUse();

/// Has a box belong to a window, if there is one: a window manager keeps it above that window and
/// gives the keyboard back to it. The box's parent stays who owns it. To be called when the box has
/// all its flags.
void BelongTo(QDialog& box, const QWidget* window);

} // namespace vantrel
