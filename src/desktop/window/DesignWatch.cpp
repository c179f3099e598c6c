#include "desktop/window/DesignWatch.h"
#include "station/layout/DesignSteps.h"
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMetaObject>

namespace vantrel {

DesignWatch::DesignWatch(Session& session, QObject& owner) : QObject(&owner), m_session(session)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool DesignWatch::eventFilter(QObject* watched, QEvent* event)
{
    // An event comes to the screen's window first and then to its widgets.
    if (!watched->isWidgetType())
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        NoteDesign(m_session);
        break;
    case QEvent::MouseButtonRelease:
        NoteSoon();
        break;
    case QEvent::KeyPress:
        // What a key does while it is held is one step.
        if (!static_cast<const QKeyEvent*>(event)->isAutoRepeat())
            NoteDesign(m_session);
        break;
    case QEvent::KeyRelease:
        if (!static_cast<const QKeyEvent*>(event)->isAutoRepeat())
            NoteSoon();
        break;
    default:
        break;
    }
    return false;
}

void DesignWatch::NoteSoon()
{
    if (m_asked)
        return;
    m_asked = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_asked = false;
            NoteDesign(m_session);
        },
        Qt::QueuedConnection);
}

} // namespace vantrel
