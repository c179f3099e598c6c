#include "desktop/window/frmMain.h"
#include "desktop/controls/DesktopAccess.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopDragGuard.h"
#include "desktop/controls/DesktopFrameAccess.h"
#include "desktop/controls/DesktopPanel.h"
#include "desktop/controls/DesktopToolTip.h"
#include "desktop/controls/RunTimeError.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/designer/DesktopViewBar.h"
#include "desktop/designer/DesktopWorkspace.h"
#include "desktop/designer/frmDocument.h"
#include "desktop/menu/DesktopMenu.h"
#include "desktop/window/Background.h"
#include "desktop/window/DesignWatch.h"
#include "desktop/window/DesktopTray.h"
#include "desktop/window/frmNav.h"
#include "station/session/MainRuntime.h"
#include "station/session/PoolStatus.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QStatusBar>

namespace vantrel {

namespace {

/// Every button that a title bar can have except the close box.
constexpr Qt::WindowFlags FrameFlags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                       Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint;
constexpr int FlashInterval = 100;
constexpr int ImageInterval = 250;
constexpr int VisibleInterval = 250;
constexpr int StatusInterval = 2000;
constexpr int HideInterval = 50;
constexpr int PanelCount = 3;

} // namespace

frmMain::frmMain(Session& session, Display display)
    : QMainWindow(nullptr, FrameFlags), m_session(session), m_display(display),
      m_workspace(new DesktopWorkspace(this)), m_menu(new MainMenu(session, *this)),
      m_document(new frmDocument(session)), m_nav(new frmNav(session, m_workspace))
{
    TellAs<frmMain, QAccessible::Window, FrameAccess>();
    setObjectName(QStringLiteral("frmMain"));
    new DesktopDragGuard(this);
    m_workspace->setObjectName(QStringLiteral("Workspace"));
    // Qt reports only the card to screen readers and not the navigator.
    TellAs<QMdiArea, QAccessible::LayeredPane>();
    m_workspace->setAccessibleName(QStringLiteral("Workspace"));
    m_workspace->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_workspace->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_workspace->addSubWindow(m_document);
    m_document->hide();
    setCentralWidget(m_workspace);
    m_workspace->viewport()->installEventFilter(this);
    m_flashTimer = &MakeTimer("tmrFlash", FlashInterval, &frmMain::OnFlashTick);
    BuildStatusBar();
    MirrorFace();
    if (m_session.Options.DesignTools) {
        m_designWatch = new DesignWatch(m_session, *this);
        connect(m_workspace, &DesktopWorkspace::RulersChanged, this, &frmMain::PlaceNavigator);
        m_workspace->AddRulers(m_session, *m_document);
        statusBar()->addPermanentWidget(new DesktopViewBar(m_session, *m_document, statusBar()));
    }
    if (m_display == Display::Present)
        new DesktopTray(m_session.Face, *this);
}

frmMain::~frmMain() = default;

void frmMain::BuildStatusBar()
{
    auto* bar = statusBar();
    bar->setObjectName(QStringLiteral("SB"));
    // The panels draw a frame themselves.
    bar->setStyleSheet(QStringLiteral("QStatusBar::item { border: none }"));
    for (int number = 1; number <= PanelCount; ++number) {
        auto* panel = new DesktopPanel(bar);
        panel->setObjectName(QStringLiteral("SB%1").arg(number));
        bar->addWidget(panel, 1);
        m_panels[number - 1] = panel;
        ShowPanel(number);
    }
    m_panels[0]->installEventFilter(this);
    if (!m_session.Options.Pool.Name.isEmpty()) {
        m_poolPanel = new DesktopPanel(bar);
        m_poolPanel->setObjectName(QStringLiteral("SBPool"));
        bar->addWidget(m_poolPanel, 1);
    }
}

void frmMain::MirrorFace()
{
    StationFace& face = m_session.Face;
    connect(&face, &StationFace::CaptionChanged, this,
            [this](const QString& text) { setWindowTitle(ShownLine(text)); });
    connect(&face, &StationFace::PanelChanged, this, &frmMain::ShowPanel);
    connect(&face, &StationFace::VisibilityChanged, this, &frmMain::ShowOrHide);
    connect(&face, &StationFace::BackgroundChanged, this, &frmMain::TakeBackground);
    connect(&face, &StationFace::RecordBegun, this, &frmMain::StartFlash);
    connect(&face, &StationFace::ExitConfirmed, this, &frmMain::Unload, Qt::QueuedConnection);
}

void frmMain::Load()
{
    if (m_loaded || m_unloaded)
        return;
    m_loaded = true;
    const StationSettings& settings = m_session.Settings;
    const QRect place =
        ScreenRect(settings.MLeft, settings.MTop, settings.MWidth, settings.MHeight);
    move(place.topLeft());
    resize(place.size());
    PaintBack();
    RunOrEnd([&] { LoadMain(m_session); });
    m_menu->UpdateStartCaptions();
    UpdateCommands();
    StartTimers();
    ShowOrHide(m_session.Settings.MainVisible);
    if (!m_unloaded)
        Q_EMIT Loaded();
}

QTimer& frmMain::MakeTimer(const char* name, int interval, void (frmMain::*tick)())
{
    auto* timer = new QTimer(this);
    timer->setObjectName(QLatin1StringView(name));
    connect(timer, &QTimer::timeout, this, tick);
    timer->setInterval(interval);
    return *timer;
}

void frmMain::StartTimers()
{
    MakeTimer("tmrHide", HideInterval, &frmMain::OnHideTick).start();
    MakeTimer("tmrImage", ImageInterval, &frmMain::OnImageTick).start();
    MakeTimer("tmrStatus", StatusInterval, &frmMain::OnStatusTick).start();
    MakeTimer("tmrVisible", VisibleInterval, &frmMain::OnVisibleTick).start();
    if (m_designWatch != nullptr)
        m_designWatch->KeepUnsaved();
}

void frmMain::Unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    Q_EMIT Unloading();
    for (QTimer* timer : findChildren<QTimer*>(Qt::FindDirectChildrenOnly))
        timer->stop();
    if (m_designWatch != nullptr)
        m_designWatch->End();
    if (m_loaded) {
        const Geometry present{ScreenTwips(y()), ScreenTwips(x()), ScreenTwips(height()),
                               ScreenTwips(width())};
        UnloadMain(m_session, isMinimized() ? nullptr : &present);
    }
    // Closing a dialog also ends what it is running, such as a run of card numbers.
    for (QDialog* dialog : findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly))
        dialog->hide();
    hide();
    QCoreApplication::exit(0);
}

void frmMain::StartFlash()
{
    // A running flash continues: records in quick succession must not restart it before its next
    // tick.
    if (!m_unloaded && !m_flashTimer->isActive())
        m_flashTimer->start();
}

void frmMain::OnFlashTick()
{
    if (!TickFlash(m_session.Face, m_flash))
        m_flashTimer->stop();
}

void frmMain::OnVisibleTick()
{
    // The file is read when it has changed, or when a command has changed what it is compared with.
    const FileStamp stamp = StampOfFile(SessionStatusPath(m_session.ProgramFolder));
    const bool visible = m_session.Settings.MainVisible;
    if (m_statusSeen && stamp == m_statusStamp && visible == m_visibleAtLook)
        return;
    m_statusSeen = true;
    m_statusStamp = stamp;
    RunOrEnd([&] {
        if (ReadSessionStatus(m_session) == StatusVerdict::Unload)
            Unload();
    });
    m_visibleAtLook = m_session.Settings.MainVisible;
}

void frmMain::OnStatusTick()
{
    RunOrEnd([&] { TickStatusBar(m_session); });
    // A station that shows its pool must not ask its server much more often than one that does not.
    constexpr int ticksOfPool = 2;
    if (++m_statusTicks % ticksOfPool == 0)
        ShowPool();
}

void frmMain::OnHideTick()
{
    if (!m_session.Settings.MainVisible)
        hide();
    UpdateCommands();
}

void frmMain::OnImageTick()
{
    if (!m_repaintBackground)
        return;
    PaintBack();
    m_repaintBackground = false;
}

void frmMain::PaintBack()
{
    m_workspace->setBackground(BackgroundBrush(m_session.Settings.Background,
                                               m_workspace->viewport()->size(), devicePixelRatioF(),
                                               palette().brush(QPalette::Dark)));
}

void frmMain::TakeBackground()
{
    PaintBack();
    const auto* color = std::get_if<double>(&m_session.Settings.Background);
    if (color != nullptr && *color > 0)
        m_nav->TakeColor(m_workspace->background().color());
}

void frmMain::ShowPanel(int number)
{
    const Panel& panel = m_session.Face.StatusPanel(number);
    m_panels[number - 1]->setText(ShownLine(panel.Text));
    SetPlainToolTip(*m_panels[number - 1], ShownLine(panel.ToolTip));
}

void frmMain::ShowPool()
{
    // The store is asked only where somebody can see the answer.
    if (m_poolPanel == nullptr || !isVisible())
        return;
    const Panel panel = PoolPanel(m_session);
    m_poolPanel->setText(ShownLine(panel.Text));
    SetPlainToolTip(*m_poolPanel, ShownLine(panel.ToolTip));
}

void frmMain::ShowOrHide(bool visible)
{
    setVisible(visible && m_display == Display::Present);
    ShowPool();
}

void frmMain::UpdateCommands()
{
    m_menu->UpdateEnabled();
    m_nav->SetLayoutCommandsEnabled(m_session.Settings.MainVisible &&
                                    !m_session.CurrentLayoutName.isEmpty());
}

void frmMain::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

void frmMain::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    m_repaintBackground = true;
    PlaceNavigator();
}

void frmMain::PlaceNavigator()
{
    m_nav->KeepPlace(width(), m_workspace->viewport()->y());
}

void frmMain::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    // The colours of the desktop have changed; the background may use one of them.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        m_repaintBackground = true;
}

bool frmMain::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* release = static_cast<QMouseEvent*>(event);
        if (watched == m_panels[0])
            m_session.Face.SetPanelToolTip(1, m_session.Face.StatusPanel(1).Text);
        else if (watched == m_workspace->viewport() && release->button() == Qt::RightButton &&
                 m_workspace->viewport()->childAt(release->position().toPoint()) == nullptr)
            m_session.Face.AskPopUp(PopUp::mnuBack);
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace vantrel
