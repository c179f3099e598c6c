#pragma once

#include "station/commands/UnsavedPage.h"
#include <QObject>
#include <QTimer>

class QWidget;

namespace vantrel {

class Session;

/// Notes what the operator does to the page in any window of the station: dialogs change the page
/// when their buttons are pressed. What was done between a press and what follows it is one step
/// that can be taken back. Also keeps what is unsaved, see `UnsavedPage`.
class DesignWatch : public QObject
{
    Q_OBJECT

public:
    /// @param window  the main window, which owns this object
    DesignWatch(Session& session, QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Offers what an earlier run has left, as soon as the window is shown, and from now on keeps
    /// what is unsaved.
    void KeepUnsaved();
    /// The station ends. What is unsaved is kept, unless the operator has confirmed the end.
    void End();

private:
    void NoteSoon();
    void OnKeepTick();

    Session& m_session;
    const QWidget& m_window;
    bool m_asked = false;
    bool m_endConfirmed = false;
    UnsavedPage m_unsaved;
    QTimer m_keepTimer;
};

} // namespace vantrel
