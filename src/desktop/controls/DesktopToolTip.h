#pragma once

#include <QString>

class QWidget;

namespace vantrel {

/// Gives a control a tool tip that shows the text unchanged, with all its blanks: a value such as
/// "<b>" or "R&D" is not read as markup. The control's tool tip property, which a screen reader
/// also reads, holds the plain text.
void SetPlainToolTip(QWidget& widget, const QString& text);

} // namespace vantrel
