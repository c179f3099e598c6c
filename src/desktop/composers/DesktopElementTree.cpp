#include "desktop/composers/DesktopElementTree.h"
#include "desktop/composers/DesktopElementChip.h"
#include "desktop/controls/DesktopControls.h"
#include <QDrag>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <algorithm>

namespace vantrel {

namespace {

constexpr int KeyRole = Qt::UserRole;
constexpr int ColumnMargin = 24;
/// The longest text, in characters, for which the tree is widened: a node may hold a value of any
/// length.
constexpr int MostCharacters = 40;

QString KeyOf(const QTreeWidgetItem& node)
{
    return node.data(0, KeyRole).toString();
}

/// The icon of a node, as wide as the widest so that all texts begin below each other. A node that
/// makes no element when it is dropped has an empty icon of that width.
QIcon IconOf(const ElementLook& look, const QWidget& shownOn, const QSize& size)
{
    QPixmap room(size * shownOn.devicePixelRatioF());
    room.setDevicePixelRatio(shownOn.devicePixelRatioF());
    room.fill(Qt::transparent);
    if (!look.Name.isEmpty()) {
        QPainter painter(&room);
        painter.drawPixmap(0, 0, DesktopElementChip::PictureOf(look, shownOn));
    }
    QIcon icon(room);
    icon.addPixmap(room, QIcon::Selected);
    return icon;
}

} // namespace

DesktopElementTree::DesktopElementTree(const QString& accessibleName, QWidget* parent)
    : QTreeWidget(parent)
{
    setAccessibleName(accessibleName);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
}

void DesktopElementTree::SetNodes(const std::vector<ElementNode>& nodes)
{
    clear();
    QSize pictures;
    for (const ElementNode& node : nodes)
        pictures = pictures.expandedTo(DesktopElementChip::SizeFor(node.Look, font()));
    for (const ElementNode& node : nodes) {
        auto* item = new QTreeWidgetItem(this, {ShownLine(node.Text)});
        item->setData(0, KeyRole, node.Key);
        item->setIcon(0, IconOf(node.Look, *this, pictures));
    }
    setIconSize(pictures);
    const int widest = pictures.width() + MostCharacters * fontMetrics().averageCharWidth();
    setMinimumWidth(std::min(sizeHintForColumn(0), widest) + ColumnMargin);
}

QMimeData* DesktopElementTree::mimeData(const QList<QTreeWidgetItem*>& items) const
{
    if (items.isEmpty())
        return nullptr;
    auto* word = new QMimeData;
    word->setText(KeyOf(*items.constFirst()));
    return word;
}

void DesktopElementTree::startDrag(Qt::DropActions supportedActions)
{
    const QList<QTreeWidgetItem*> chosen = selectedItems();
    if (chosen.isEmpty())
        return;
    // The picture under the pointer shows the element and not the line of the tree.
    auto* drag = new QDrag(this);
    drag->setMimeData(mimeData(chosen));
    const QIcon icon = chosen.constFirst()->icon(0);
    drag->setPixmap(icon.pixmap(iconSize(), devicePixelRatioF()));
    drag->setHotSpot(QPoint(iconSize().width() / 2, iconSize().height() / 2));
    drag->exec(supportedActions, Qt::CopyAction);
}

void DesktopElementTree::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentItem() != nullptr)
        Q_EMIT Chosen(KeyOf(*currentItem()));
    else
        QTreeWidget::keyPressEvent(event);
}

} // namespace vantrel
