#pragma once

#include <QString>

class QWidget;

namespace vantrel {

/// Gives a control a tool tip that shows as it stands, with all its blanks: a value such as "<b>"
/// or "R&D" is no markup. The tip itself, which is also what a screen reader is told, is the text.
void SetPlainToolTip(QWidget& widget, const QString& text);

} // namespace vantrel
