#pragma once

#include "station/compose/ComposerElement.h"
#include <QScrollArea>

namespace vantrel {

class DesktopElementChip;

/// A row onto which elements are dropped; it scrolls when it is long. With the keyboard the arrow
/// keys go from element to element, and a mnemonic that leads here counts as a click on the row.
class DesktopElementRow : public QScrollArea
{
    Q_OBJECT

public:
    /// What a row shows for one element.
    struct Shown
    {
        ElementLook Look;
        QString ToolTip;
    };

    /// @param elementName  name of its elements; each is followed by its number, from 1
    DesktopElementRow(const QString& elementName, const QString& accessibleName, QWidget* parent);
    ~DesktopElementRow() override;

    void SetElements(const std::vector<Shown>& elements);
    void SetBackColor(ColorValue color);
    int Count() const { return static_cast<int>(m_chips.size()); }

Q_SIGNALS:
    /// The row or an element of it was clicked.
    void Clicked();
    /// A word was dropped.
    void Dropped(const QString& key);
    /// An element, counted from 0, was double-clicked, or Enter was pressed on it.
    void Opened(int index);
    /// The right button was released over an element.
    void RightReleased(int index, const QPoint& globalPosition);
    /// The Delete key was pressed on an element.
    void DeletePressed(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    class Strip;

    /// The element that has the focus, or -1.
    int FocusedIndex() const;
    void FocusElement(int index);
    void AddChip();
    void ChipEvent(int index, QEvent& event);

    QString m_elementName;
    Strip* m_strip;
    std::vector<DesktopElementChip*> m_chips;
    /// An element was appended; the row scrolls to it as soon as it has been laid out.
    bool m_showLast = false;
};

} // namespace vantrel
