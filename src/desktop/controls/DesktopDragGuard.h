#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

class QDrag;
class QWidget;

namespace vantrel {

/// Keeps a drag with the mouse from reaching for a window that has gone. A drag runs a loop of its
/// own, in which records arrive and dialogs close, while the toolkit goes on with the control the
/// drag came from and the one it was last over. Here a control that is hidden is left by the drag,
/// and a dialog that a drag came from lives until the drag has ended. One for the whole program.
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

    /// What the drag is over.
    QPointer<QWidget> m_target;
    QPointer<QDrag> m_drag;
    /// Windows that are to be deleted when the drag has ended.
    std::vector<QPointer<QWidget>> m_kept;
};

} // namespace vantrel
