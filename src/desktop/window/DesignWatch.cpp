#include "desktop/window/DesignWatch.h"
#include "station/layout/DesignSteps.h"
#include "station/session/Session.h"
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMetaObject>
#include <QWidget>

namespace vantrel {

namespace {
constexpr int KeepInterval = 2000;
} // namespace

DesignWatch::DesignWatch(Session& session, QWidget& window)
    : QObject(&window), m_session(session), m_window(window), m_unsaved(session)
{
    QCoreApplication::instance()->installEventFilter(this);
    m_keepTimer.setObjectName(QStringLiteral("tmrKeep"));
    m_keepTimer.setInterval(KeepInterval);
    connect(&m_keepTimer, &QTimer::timeout, this, &DesignWatch::OnKeepTick);
    connect(&session.Face, &StationFace::ExitConfirmed, this, [this] { m_endConfirmed = true; });
}

void DesignWatch::KeepUnsaved()
{
    m_keepTimer.start();
    QMetaObject::invokeMethod(this, &DesignWatch::OnKeepTick, Qt::QueuedConnection);
}

void DesignWatch::OnKeepTick()
{
    // Nobody sees a question of a window that is hidden.
    if (m_window.isVisible() && m_keepTimer.isActive())
        m_unsaved.Offer();
    if (m_keepTimer.isActive())
        m_unsaved.Keep();
}

void DesignWatch::End()
{
    m_keepTimer.stop();
    if (m_endConfirmed) {
        m_unsaved.GiveUp();
        return;
    }
    NoteDesign(m_session);
    m_unsaved.Keep();
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
