#include "desktop/controls/DesktopDragGuard.h"
#include <QCoreApplication>
#include <QDrag>
#include <QDropEvent>
#include <QWidget>
#include <utility>

namespace vantrel {

DesktopDragGuard::DesktopDragGuard(QObject* parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool DesktopDragGuard::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
        Follow(static_cast<QDropEvent*>(event)->source());
        // A drag is offered from the innermost control outwards; the last control that was asked
        // has accepted it.
        if (watched->isWidgetType())
            m_target = static_cast<QWidget*>(watched);
        break;
    case QEvent::DragLeave:
    case QEvent::Drop:
        if (watched == m_target)
            m_target.clear();
        break;
    case QEvent::Hide:
        if (watched == m_target)
            LeaveTarget();
        if (watched->isWidgetType())
            Keep(*static_cast<QWidget*>(watched));
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void DesktopDragGuard::Follow(QObject* source)
{
    if (source == nullptr || !m_drag.isNull())
        return;
    m_drag = source->findChild<QDrag*>(QString(), Qt::FindDirectChildrenOnly);
    // Qt also deletes it once it is done with the source.
    if (!m_drag.isNull())
        connect(m_drag, &QObject::destroyed, this, &DesktopDragGuard::Release);
}

void DesktopDragGuard::LeaveTarget()
{
    const QPointer<QWidget> target = std::exchange(m_target, nullptr);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(target, &leave);
}

void DesktopDragGuard::Keep(QWidget& window)
{
    if (!window.testAttribute(Qt::WA_DeleteOnClose))
        return;
    const QObject* at = m_drag;
    while (at != nullptr && at != &window)
        at = at->parent();
    if (at == nullptr)
        return;
    // A control hides before it is deleted.
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    m_kept.emplace_back(&window);
}

void DesktopDragGuard::Release()
{
    for (const QPointer<QWidget>& window : std::exchange(m_kept, {})) {
        if (window.isNull())
            continue;
        // The window may have been opened again meanwhile.
        if (window->isVisible())
            window->setAttribute(Qt::WA_DeleteOnClose);
        else
            window->deleteLater();
    }
}

} // namespace vantrel
