#include "desktop/Designer.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <gtest/gtest.h>

namespace vantrel::test {

Designer::Designer(const StationOptions& options)
    : DesktopStation(true, options), Form(&Get<frmDocument>("frmDocument"))
{
    WithLayout();
    AddNumber(Session, 7, {1500, 400, 300, 1500});
    SavePage(Session);
    EXPECT_TRUE(LoadLayout(Session, QStringLiteral("Badge")));
    Load();
    EXPECT_TRUE(EventsUntil([&] { return Form->isVisible(); }));
}

void Designer::Send(QEvent::Type type, QPoint point, Qt::MouseButton button,
                    Qt::KeyboardModifiers keys)
{
    if (type == QEvent::MouseButtonPress)
        m_held = button;
    else if (type == QEvent::MouseButtonRelease)
        m_held = Qt::NoButton;
    const Qt::MouseButton of = type == QEvent::MouseMove ? Qt::NoButton : button;
    QMouseEvent event(type, point, Form->mapToGlobal(point), of, m_held, keys);
    QApplication::sendEvent(Form, &event);
}

void Designer::Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys)
{
    Press(from, Qt::LeftButton, keys);
    Move((from + to) / 2);
    Move(to);
    Release(to);
}

QPoint Designer::Grip(int index) const
{
    const CardObject& grip = *Session.Document.Find(Family::picHandle, index);
    return At(static_cast<int>(grip.Left) + 37, static_cast<int>(grip.Top) + 37);
}

QString Designer::TakePopUp()
{
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QString name = menu == nullptr ? QString() : menu->objectName();
    if (menu != nullptr)
        menu->close();
    return name;
}

void ExpectBox(const CardObject& object, float left, float top, float width, float height)
{
    EXPECT_EQ(object.Left, left);
    EXPECT_EQ(object.Top, top);
    EXPECT_EQ(object.Width, width);
    EXPECT_EQ(object.Height, height);
}

} // namespace vantrel::test
