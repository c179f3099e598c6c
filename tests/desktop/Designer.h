#pragma once

#include "card/CardObject.h"
#include "desktop/DesktopStation.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/designer/frmDocument.h"
#include <QEvent>

namespace vantrel::test {

/// A station with the designer on the screen: a text, a field and a number on one page.
class Designer : public DesktopStation
{
public:
    explicit Designer(const StationOptions& options = {});

    /// The point of the window at that place on the card, in twips, at the present zoom.
    QPoint At(int left, int top) const
    {
        return Form->CardRect().topLeft() +
               QPoint(ScreenPixels(left * Form->Zoom()), ScreenPixels(top * Form->Zoom()));
    }
    void Press(QPoint point, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        Send(QEvent::MouseButtonPress, point, button, keys);
    }
    void Move(QPoint point, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        Send(QEvent::MouseMove, point, Qt::NoButton, keys);
    }
    void Release(QPoint point, Qt::MouseButton button = Qt::LeftButton)
    {
        Send(QEvent::MouseButtonRelease, point, button);
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = Qt::NoModifier);
    void Click(QPoint point, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        Press(point, Qt::LeftButton, keys);
        Release(point);
    }
    CardObject& Object(Family family) { return *Session.Document.Find(family, 1); }
    /// The middle of a grip.
    QPoint Grip(int index) const;
    bool Selected() const { return Session.Document.SelectedObject != nullptr; }
    /// Name of the open menu, which is then closed.
    static QString TakePopUp();

    frmDocument* Form;

private:
    void Send(QEvent::Type type, QPoint point, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers keys = Qt::NoModifier);

    Qt::MouseButton m_held = Qt::NoButton;
};

void ExpectBox(const CardObject& object, float left, float top, float width, float height);

} // namespace vantrel::test
