#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

class QDrag;
class QWidget;

namespace vantrel {

/// Keeps a mouse drag from using a window that has been deleted. A drag runs an event loop of its
/// own, in which records arrive and dialogs close, while Qt goes on using the control that the drag
/// came from and the one it was last over. With this guard the drag leaves a control that is
/// hidden, and a dialog that a drag came from is deleted only after the drag. There is one guard
/// for the whole program.
class DesktopDragGuard : public QObject
{
    Q_OBJECT

public:
    explicit DesktopDragGuard(QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Follow(QObject* source);
    void LeaveTarget();
    /// Puts off the deletion of a window that closes, if the drag came from it.
    void Keep(QWidget& window);
    void Release();

    /// The control that the drag is over.
    QPointer<QWidget> m_target;
    QPointer<QDrag> m_drag;
    /// Windows that are to be deleted when the drag has ended.
    std::vector<QPointer<QWidget>> m_kept;
};

} // namespace vantrel
