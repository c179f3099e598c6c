#pragma once

#include "app/StationFace.h"
#include <QObject>

class QAction;
class QMainWindow;

namespace vantrel {

class Session;

/// The menus of the main window. Each entry is a `QAction` of the window under its own name.
class MainMenu : public QObject
{
    Q_OBJECT

public:
    MainMenu(Session& session, QMainWindow& window);

    /// Fits what can be chosen to whether the windows show and whether a layout is open.
    void UpdateEnabled();
    /// Captions the entry that hides or shows the windows by the present state.
    void UpdateHideCaption();

Q_SIGNALS:
    /// The operator has confirmed that the station is to end.
    void ExitConfirmed();

private:
    struct Entry;
    static const Entry Entries[];

    void Build();
    void AddCommand(const Entry& entry, QWidget& menu);
    void MirrorTick(Tick tick, bool on);
    QAction* Find(const char* name) const;

    Session& m_session;
    QMainWindow& m_window;
};

} // namespace vantrel
