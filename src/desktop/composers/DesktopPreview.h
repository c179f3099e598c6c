#pragma once

#include <QString>

class QLabel;
class QLineEdit;
class QWidget;

namespace vantrel {

/// A line below a composer's row that shows what the row would give. It can be read and copied, not
/// changed.
QLineEdit* MakePreview(const QString& accessibleName, QWidget* parent);
/// @param remark  shown in a muted colour while there is no text
void ShowPreview(QLineEdit& line, const QString& text, const QString& remark);
/// A line that explains how to use the composer.
QLabel* MakeHint(const QString& text, QWidget* parent);

} // namespace vantrel
