#include "desktop/ComposerHand.h"
#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

QModelIndex NodeOf(QTreeWidget& tree, const QString& text)
{
    const QModelIndexList found =
        tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly);
    if (found.isEmpty())
        throw std::runtime_error("no node " + text.toStdString());
    return found.constFirst();
}

void SendMouse(QWidget& widget, QEvent::Type type, Qt::MouseButton button)
{
    const QPointF at = widget.rect().center();
    const bool released = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, released ? Qt::NoButton : button,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

QStringList ComposerHand::Nodes()
{
    QStringList texts;
    for (int node = 0; node < Tree().topLevelItemCount(); ++node)
        texts += Tree().topLevelItem(node)->text(0);
    return texts;
}

void ComposerHand::SelectNode(const QString& text)
{
    Tree().setCurrentIndex(NodeOf(Tree(), text));
}

bool ComposerHand::Drop(QWidget& onto, const QMimeData& data)
{
    const QPointF at = onto.rect().center();
    QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&onto, &enter);
    if (!enter.isAccepted())
        return false;
    QDragMoveEvent move(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&onto, &move);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&onto, &drop);
    QApplication::processEvents();
    return move.isAccepted() && drop.isAccepted();
}

void ComposerHand::DragOnto(const char* row, const QString& nodeText)
{
    const std::unique_ptr<QMimeData> data(Tree().model()->mimeData({NodeOf(Tree(), nodeText)}));
    ASSERT_NE(data, nullptr);
    EXPECT_TRUE(Drop(*Row(row).viewport(), *data));
}

bool ComposerHand::DropWord(const char* row, const QString& word)
{
    QMimeData data;
    data.setText(word);
    return Drop(*Row(row).viewport(), data);
}

void ComposerHand::DoubleClick(const char* element)
{
    auto& chip = Get<QWidget>(element);
    SendMouse(chip, QEvent::MouseButtonPress, Qt::LeftButton);
    SendMouse(chip, QEvent::MouseButtonRelease, Qt::LeftButton);
    SendMouse(chip, QEvent::MouseButtonDblClick, Qt::LeftButton);
    // The element may have been deleted with its dialog, so nothing is sent to it from here on.
    QApplication::processEvents();
}

void ComposerHand::RightClick(const char* element)
{
    auto& chip = Get<QWidget>(element);
    SendMouse(chip, QEvent::MouseButtonPress, Qt::RightButton);
    SendMouse(chip, QEvent::MouseButtonRelease, Qt::RightButton);
    QApplication::processEvents();
}

void ComposerHand::ClickRow(const char* row)
{
    SendMouse(*Row(row).viewport(), QEvent::MouseButtonPress, Qt::LeftButton);
    SendMouse(*Row(row).viewport(), QEvent::MouseButtonRelease, Qt::LeftButton);
}

void ComposerHand::PressKey(QWidget& control, Qt::Key key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&control, &press);
    QApplication::processEvents();
}

} // namespace vantrel::test
