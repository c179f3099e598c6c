#pragma once

#include "desktop/DesktopStation.h"
#include "desktop/composers/DesktopElementRow.h"
#include "desktop/composers/DesktopElementTree.h"
#include <QWidget>

namespace vantrel::test {

/// Uses a composer as an operator does: drags from its tree onto its rows, clicks and presses keys.
class ComposerHand
{
public:
    explicit ComposerHand(QWidget& dialog) : m_dialog(dialog) {}

    template <typename Control>
    Control& Get(const char* name)
    {
        return DesktopStation::Named<Control>(m_dialog, name);
    }
    DesktopElementTree& Tree() { return Get<DesktopElementTree>("tvwData"); }
    DesktopElementRow& Row(const char* name) { return Get<DesktopElementRow>(name); }

    /// Texts of the tree's nodes in their order.
    QStringList Nodes();
    void SelectNode(const QString& text);
    /// Drags a node over a row and drops it there, with what the tree itself puts into a drag.
    void DragOnto(const char* row, const QString& nodeText);
    /// Drops a word that comes from another program. @return whether the row took it
    bool DropWord(const char* row, const QString& word);
    void DoubleClick(const char* element);
    void RightClick(const char* element);
    void ClickRow(const char* row);
    static void PressKey(QWidget& control, Qt::Key key);

private:
    bool Drop(QWidget& onto, const QMimeData& data);

    QWidget& m_dialog;
};

} // namespace vantrel::test
