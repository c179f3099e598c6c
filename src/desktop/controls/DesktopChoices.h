#pragma once

#include <QListWidget>

namespace vantrel {

/// A list in which one line can be chosen and none is at first. The first arrow key, Home or End
/// then chooses a line, even if there is only one. Without this a list has a current line from the
/// beginning, and these keys would leave it, or pass it, without choosing it.
class DesktopChoices : public QListWidget
{
    Q_OBJECT

public:
    using QListWidget::QListWidget;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace vantrel
