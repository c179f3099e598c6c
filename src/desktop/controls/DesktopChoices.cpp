#include "desktop/controls/DesktopChoices.h"
#include <QKeyEvent>

namespace vantrel {

void DesktopChoices::keyPressEvent(QKeyEvent* event)
{
    const bool choosesFirst = event->key() == Qt::Key_Down || event->key() == Qt::Key_Home;
    const bool choosesLast = event->key() == Qt::Key_Up || event->key() == Qt::Key_End;
    if (count() > 0 && selectedItems().isEmpty() && (choosesFirst || choosesLast)) {
        setCurrentRow(choosesFirst ? 0 : count() - 1, QItemSelectionModel::ClearAndSelect);
        return;
    }
    QListWidget::keyPressEvent(event);
}

} // namespace vantrel
