#pragma once

#include "station/compose/ComposerElement.h"
#include <QTreeWidget>

namespace vantrel {

/// The tree of elements a composer offers. A drag of a node carries its key as text.
class DesktopElementTree : public QTreeWidget
{
    Q_OBJECT

public:
    DesktopElementTree(const QString& accessibleName, QWidget* parent);

    void SetNodes(const std::vector<ElementNode>& nodes);

Q_SIGNALS:
    /// Enter was pressed on a node.
    void Chosen(const QString& key);

protected:
    QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override;
    void startDrag(Qt::DropActions supportedActions) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace vantrel
