#pragma once

#include <QListWidget>

namespace vantrel {

/// A list of which one line is chosen, and none at first. An arrow key, Home or End chooses a line
/// then, the only one too: such a list has a current line from the beginning, which these keys
/// would else leave alone or leave behind unchosen.
class DesktopChoices : public QListWidget
{
    Q_OBJECT

public:
    using QListWidget::QListWidget;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace vantrel
