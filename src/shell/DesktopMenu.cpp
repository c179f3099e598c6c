#include "shell/DesktopMenu.h"
#include "app/DesktopControls.h"
#include "app/RunTimeError.h"
#include "app/Session.h"
#include "layout/frmGetLayout.h"
#include "shell/Commands.h"
#include <QMainWindow>
#include <QMenuBar>

namespace vantrel {

namespace {

/// When an entry can be chosen.
enum class Enabled { Always, WhileVisible, WithLayout, WhileVisibleWithLayout };

} // namespace

/// A row without a name is a separator, one without an action a menu.
struct MainMenu::Entry
{
    /// Name of the menu it stands in; empty for the bar.
    const char* Parent;
    const char* Name = "";
    const char* Caption = "";
    const char* Shortcut = "";
    void (*Action)(MainMenu& menu) = nullptr;
    Enabled When = Enabled::Always;
    std::optional<Tick> Ticked = {};
};

// clang-format off
constexpr MainMenu::Entry MainMenu::Entries[] = {
    {"", "mnuFile", "&File"},
    {"mnuFile", "mnuOpen", "&Open ..."},
    {"mnuOpen", "cmdOpen", "&Open Layout", "",
     [](MainMenu& menu) { OpenDialog<frmGetLayout>(menu.m_session, &menu.m_window); }, Enabled::WhileVisible},
    {"mnuFile", "cmdSave", "&Save", "Ctrl+S",
     [](MainMenu& menu) { SaveCommand(menu.m_session); }, Enabled::WhileVisibleWithLayout},
    {"mnuFile", "cmdClose", "&Close Layout", "Ctrl+L",
     [](MainMenu& menu) { CloseCommand(menu.m_session); }, Enabled::WithLayout},
    {"mnuFile"},
    {"mnuFile", "cmdPrint", "Print ...", "Ctrl+P",
     [](MainMenu& menu) { PrintCommand(menu.m_session); }, Enabled::WithLayout},
    {"mnuFile"},
    {"mnuFile", "cmdHide", "Hide Vantrel...", "Ctrl+H",
     [](MainMenu& menu) { ToggleVisible(menu.m_session); menu.UpdateHideCaption(); }},
    {"mnuFile", "cmdExit", "&Disable Vantrel", "Shift+Del",
     [](MainMenu& menu) { if (ExitCommand(menu.m_session)) Q_EMIT menu.ExitConfirmed(); }},
    {"", "mnuData", "&Document", "", nullptr, Enabled::WithLayout},
    {"mnuData", "chkAutoSpool", "Automatically Print Document", "",
     [](MainMenu& menu) { ToggleAutoSpool(menu.m_session); }, Enabled::Always, Tick::chkAutoSpool},
    {"", "mnuSettings", "&Settings"},
    {"mnuSettings", "mnuOptions", "Options ..."},
    {"mnuOptions", "cmdDynamicLayout", "Dynamically Load Layouts", "",
     [](MainMenu& menu) { ToggleDynamicLayouts(menu.m_session); }, Enabled::Always,
     Tick::cmdDynamicLayout},
    {"mnuOptions", "chkAutoAdd", "Dynamically Load Fields", "",
     [](MainMenu& menu) { ToggleDynamicFields(menu.m_session); }, Enabled::Always, Tick::chkAutoAdd},
    {"mnuSettings"},
    {"mnuSettings", "cmdCapEnable", "Enable Data Capture", "",
     [](MainMenu& menu) { ToggleCapture(menu.m_session); }, Enabled::Always, Tick::cmdCapEnable},
};
// clang-format on

MainMenu::MainMenu(Session& session, QMainWindow& window)
    : QObject(&window), m_session(session), m_window(window)
{
    Build();
    connect(&session.Face, &StationFace::TickChanged, this, &MainMenu::MirrorTick);
    UpdateEnabled();
}

void MainMenu::Build()
{
    for (const Entry& entry : Entries) {
        auto* menu = m_window.findChild<QMenu*>(QLatin1StringView(entry.Parent));
        if (*entry.Name == '\0') {
            menu->addSeparator();
        } else if (entry.Action != nullptr) {
            AddCommand(entry, *menu);
        } else {
            const QString caption = QLatin1StringView(entry.Caption);
            QMenu* made = *entry.Parent == '\0' ? m_window.menuBar()->addMenu(caption)
                                                : menu->addMenu(caption);
            made->setObjectName(QLatin1StringView(entry.Name));
        }
    }
}

void MainMenu::AddCommand(const Entry& entry, QWidget& menu)
{
    auto* action = new QAction(QLatin1StringView(entry.Caption), &m_window);
    action->setObjectName(QLatin1StringView(entry.Name));
    action->setShortcut(QKeySequence(QLatin1StringView(entry.Shortcut)));
    if (entry.Ticked) {
        action->setCheckable(true);
        action->setChecked(m_session.Face.IsTicked(*entry.Ticked));
    }
    // Queued, so that a press returns at once even where the command asks and waits for an answer.
    connect(
        action, &QAction::triggered, this,
        [this, &entry] {
            if (entry.Ticked) {
                // The tick follows the station, not the press: the command may do nothing.
                MirrorTick(*entry.Ticked, m_session.Face.IsTicked(*entry.Ticked));
            }
            RunOrEnd([&] { entry.Action(*this); });
        },
        Qt::QueuedConnection);
    menu.addAction(action);
}

QAction* MainMenu::Find(const char* name) const
{
    if (const auto* menu = m_window.findChild<QMenu*>(QLatin1StringView(name)))
        return menu->menuAction();
    return m_window.findChild<QAction*>(QLatin1StringView(name));
}

void MainMenu::MirrorTick(Tick tick, bool on)
{
    for (const Entry& entry : Entries) {
        if (entry.Ticked == tick)
            Find(entry.Name)->setChecked(on);
    }
}

void MainMenu::UpdateEnabled()
{
    const bool visible = m_session.Settings.MainVisible;
    const bool layout = !m_session.CurrentLayoutName.isEmpty();
    for (const Entry& entry : Entries) {
        if (entry.When == Enabled::Always)
            continue;
        const bool enabled = (entry.When == Enabled::WithLayout || visible) &&
                             (entry.When == Enabled::WhileVisible || layout);
        Find(entry.Name)->setEnabled(enabled);
    }
}

void MainMenu::UpdateHideCaption()
{
    Find("cmdHide")->setText(HideCaption(m_session));
}

} // namespace vantrel
