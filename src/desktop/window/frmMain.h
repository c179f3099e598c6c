#pragma once

#include "base/FileStamp.h"
#include "station/session/TrayIcon.h"
#include <QMainWindow>
#include <QTimer>

namespace vantrel {

class DesignWatch;
class DesktopPanel;
class DesktopWorkspace;
class MainMenu;
class Session;
class frmDocument;
class frmNav;

/// Whether there is a screen to show windows on. Without one nothing is ever shown or painted.
enum class Display { Present, Absent };

/// The main window: the frame around the workspace, its menus and its status bar. It follows the
/// state of `StationFace` and has the timers that drive the station. It cannot be closed: the
/// station is left through its exit command, by the status file, or by a signal.
class frmMain : public QMainWindow
{
    Q_OBJECT

public:
    explicit frmMain(Session& session, Display display = Display::Present);
    ~frmMain() override;

    /// Starts the station: places the window, reopens the last layout and opens the ports. Call it
    /// from a running event loop.
    void Load();
    /// Stores what the next start needs and ends the event loop with 0. A window that never loaded
    /// stores nothing.
    void Unload();

Q_SIGNALS:
    /// The station is ready for records.
    void Loaded();
    /// The station begins to end; emitted once.
    void Unloading();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildStatusBar();
    void MirrorFace();
    void StartTimers();
    QTimer& MakeTimer(const char* name, int interval, void (frmMain::*tick)());
    void StartFlash();

    void OnFlashTick();
    void OnVisibleTick();
    void OnStatusTick();
    void OnHideTick();
    void OnImageTick();

    /// Paints the background of the workspace at its present size.
    void PaintBack();
    /// Shows a background that a command has changed; the navigator follows its colour.
    void TakeBackground();
    void PlaceNavigator();
    void ShowPanel(int number);
    void ShowPool();
    void ShowOrHide(bool visible);
    void UpdateCommands();

    Session& m_session;
    Display m_display;
    DesktopWorkspace* m_workspace;
    MainMenu* m_menu;
    frmDocument* m_document;
    /// With design tools only.
    DesignWatch* m_designWatch = nullptr;
    frmNav* m_nav;
    DesktopPanel* m_panels[3] = {};
    /// Of a station that belongs to a pool only.
    DesktopPanel* m_poolPanel = nullptr;
    unsigned m_statusTicks = 0;
    QTimer* m_flashTimer = nullptr;
    Flash m_flash;
    bool m_loaded = false;
    bool m_unloaded = false;
    bool m_repaintBackground = false;
    /// State of the status file, and of the windows, when the file was last read.
    FileStamp m_statusStamp;
    bool m_statusSeen = false;
    bool m_visibleAtLook = false;
};

} // namespace vantrel
