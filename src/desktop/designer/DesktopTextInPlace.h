#pragma once

#include "card/CardObject.h"
#include "station/layout/PageKey.h"
#include <QPlainTextEdit>

namespace vantrel {

/// The field in which a text of the card is edited at its place, in its font, size and colour.
/// Enter takes the text, Shift+Enter begins a line, Esc leaves it as it was. Whatever the operator
/// goes on to, a command or a press elsewhere, takes it too.
class DesktopTextInPlace : public QPlainTextEdit
{
    Q_OBJECT

public:
    DesktopTextInPlace(const CardObject& object, PageKey page, QWidget* parent);

    /// The object and the page that the text belongs to. A record may have exchanged both.
    int Index() const { return m_index; }
    const PageKey& Page() const { return m_page; }
    /// Sets font and size for that zoom.
    void TakeZoom(double zoom);
    /// The size that shows the whole text, at least that of the object's box.
    QSize SizeFor(const QSize& box) const;

Q_SIGNALS:
    void Taken();
    void Left();
    /// The text has another size.
    void Grown();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int m_index;
    PageKey m_page;
    Font m_font;
};

} // namespace vantrel
