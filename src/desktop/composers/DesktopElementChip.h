#pragma once

#include "station/compose/ComposerElement.h"
#include <QLabel>

namespace vantrel {

/// One element of a composer's row. It gets the focus by a click or by the arrow keys of its row.
class DesktopElementChip : public QLabel
{
    Q_OBJECT

public:
    explicit DesktopElementChip(QWidget* parent = nullptr);

    void Show(const ElementLook& look, const QString& toolTip);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    /// A picture of an element for a tree or a drag, in the size that the element has with this
    /// font.
    static QPixmap PictureOf(const ElementLook& look, const QWidget& shownOn);
    /// The size of an element on a row with this font.
    static QSize SizeFor(const ElementLook& look, const QFont& font);
    /// The height of all elements on a row with this font.
    static int HeightFor(const QFont& font);

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    ElementLook m_look;
};

} // namespace vantrel
