#include "desktop/menu/DesktopMenu.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/RunTimeError.h"
#include "desktop/menu/DesktopMenuIcons.h"
#include "desktop/menu/DesktopMenuRow.h"
#include "station/commands/ObjectCommands.h"
#include "station/compose/ComposerElement.h"
#include "station/layout/DesignSteps.h"
#include "station/session/MainRuntime.h"
#include "station/session/Session.h"
#include <QCursor>
#include <QMainWindow>
#include <QMenuBar>
#include <algorithm>
#include <cstring>

namespace vantrel {

namespace {

const char* MenuName(PopUp menu)
{
    switch (menu) {
    case PopUp::mnuFile:
        return "mnuFile";
    case PopUp::mnuData:
        return "mnuData";
    case PopUp::mnuProperties:
        return "mnuProperties";
    case PopUp::mnuDataFields:
        return "mnuDataFields";
    case PopUp::mnuBack:
        return "mnuBack";
    case PopUp::mnuAutoNumber:
        return "mnuAutoNumber";
    }
    return "";
}

/// A caption that shows every "&" of a value instead of taking it for a mnemonic.
QString PlainMenuText(const QString& text)
{
    return ShownLine(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

const MenuRow* RowOf(const char* name)
{
    const auto rows = MenuRows();
    const auto found = std::find_if(rows.begin(), rows.end(), [name](const MenuRow& row) {
        return *name != '\0' && std::strcmp(row.Name, name) == 0;
    });
    return found == rows.end() ? nullptr : &*found;
}

/// Whether a station with these options has the row and the menus that it stands in.
bool IsIn(const MenuRow& row, const StationOptions& options)
{
    for (const MenuRow* at = &row; at != nullptr; at = RowOf(at->Parent)) {
        if (at->IsIn != nullptr && !at->IsIn(options))
            return false;
    }
    return true;
}

} // namespace

MainMenu::MainMenu(Session& session, QMainWindow& window)
    : QObject(&window), m_session(session), m_window(window)
{
    Build();
    MirrorFace();
    UpdateEnabled();
}

void MainMenu::Build()
{
    for (const MenuRow& row : MenuRows()) {
        if (!IsIn(row, m_session.Options))
            continue;
        QAction* action = nullptr;
        if (row.Kind == RowKind::Menu)
            action = MakeMenu(row)->menuAction();
        else
            FindMenu(row.Parent)->addAction(action = MakeCommand(row));
        action->setVisible(row.ShownAtStart);
        action->setEnabled(row.EnabledAtStart);
        m_entries.push_back({&row, action});
    }
    SetIcons();
}

void MainMenu::SetIcons()
{
    for (const Entry& entry : m_entries)
        entry.Action->setIcon(MenuIcon(MenuIconNumber(entry.Action->text())));
}

QMenu* MainMenu::MakeMenu(const MenuRow& row)
{
    auto* menu = new QMenu(QLatin1StringView(row.Caption), &m_window);
    menu->setObjectName(QLatin1StringView(row.Name));
    // The only menu without a caption is that of the workspace.
    menu->setAccessibleName(menu->title().isEmpty() ? QStringLiteral("Workspace")
                                                    : menu->title().remove(QLatin1Char('&')));
    QMenu* parent = FindMenu(row.Parent);
    if (parent != nullptr)
        parent->addMenu(menu);
    else if (row.ShownAtStart)
        m_window.menuBar()->addMenu(menu);
    return menu;
}

QAction* MainMenu::MakeCommand(const MenuRow& row)
{
    auto* action = new QAction(QLatin1StringView(row.Caption), &m_window);
    action->setObjectName(QLatin1StringView(row.Name));
    action->setShortcut(QKeySequence(QLatin1StringView(row.Shortcut)));
    if (IsTool(row) && *row.ToolShortcut != '\0')
        action->setShortcuts(
            {action->shortcut(), QKeySequence(QLatin1StringView(row.ToolShortcut))});
    action->setSeparator(row.Kind == RowKind::Dash);
    if (row.Ticked) {
        action->setCheckable(true);
        action->setChecked(m_session.Face.IsTicked(*row.Ticked));
    }
    // Queued, so that a press returns at once even where the command asks and waits for an answer.
    connect(
        action, &QAction::triggered, this, [this, &row] { Run(row); }, Qt::QueuedConnection);
    return action;
}

void MainMenu::MirrorFace()
{
    const StationFace& face = m_session.Face;
    connect(&face, &StationFace::TickChanged, this, &MainMenu::MirrorTick);
    connect(&face, &StationFace::EntryVisibleChanged, this, &MainMenu::MirrorEntry);
    connect(&face, &StationFace::PropertiesEnabledChanged, this, &MainMenu::MirrorProperties);
    connect(&face, &StationFace::HideCaptionChanged, this,
            [this](const QString& text) { Find("cmdHide")->setText(text); });
    connect(&face, &StationFace::FieldsChanged, this, &MainMenu::MirrorFields);
    connect(FindMenu("mnuDataFields"), &QMenu::aboutToShow, this, &MainMenu::FillFields);
    connect(&face, &StationFace::PopUpAsked, this, &MainMenu::OpenPopUp);
    connect(&face, &StationFace::DesignChanged, this, &MainMenu::UpdateEnabled);
    MirrorFields();
}

QMenu* MainMenu::FindMenu(const char* name) const
{
    return *name == '\0' ? nullptr : m_window.findChild<QMenu*>(QLatin1StringView(name));
}

QAction* MainMenu::Find(const char* name) const
{
    const auto found = std::ranges::find(m_entries, RowOf(name), &Entry::Row);
    return found == m_entries.end() ? nullptr : found->Action;
}

void MainMenu::MirrorTick(Tick tick, bool on)
{
    for (const Entry& entry : m_entries) {
        if (entry.Row->Ticked == tick)
            entry.Action->setChecked(on);
    }
}

void MainMenu::MirrorEntry(ObjectEntry entry, bool visible)
{
    for (const Entry& built : m_entries) {
        if (built.Row->Follows == entry)
            built.Action->setVisible(visible);
    }
}

void MainMenu::MirrorFields()
{
    Find("sData")->setVisible(m_session.Face.Fields().SendEntryVisible);
    // Every record changes the list, but it is rarely opened, so it is filled when it is shown.
    if (FindMenu("mnuDataFields")->isVisible())
        FillFields();
}

void MainMenu::FillFields()
{
    const FieldMenu& fields = m_session.Face.Fields();
    QAction* send = Find("sData");
    const auto count = static_cast<std::size_t>(std::min(fields.Count(), MostValuesListed));
    for (; m_fields.size() > count; m_fields.pop_back())
        delete m_fields.back();
    while (m_fields.size() < count) {
        m_fields.push_back(new QAction(&m_window));
        const auto number = static_cast<int>(m_fields.size());
        m_fields.back()->setObjectName(QStringLiteral("cmdField(%1)").arg(number));
        // Not queued: a record that came before the command ran would give the number to another
        // value.
        connect(m_fields.back(), &QAction::triggered, this,
                [this, number] { ChooseField(number); });
        FindMenu("mnuDataFields")->insertAction(send, m_fields.back());
    }
    for (std::size_t index = 0; index < count; ++index)
        m_fields[index]->setText(PlainMenuText(fields.Caption(static_cast<int>(index) + 1)));
}

void MainMenu::MirrorProperties(bool enabled)
{
    Find("mnuProperties")->setEnabled(enabled);
    if (enabled)
        return;
    // An open menu was opened for an object that has gone.
    for (const char* menu : {"mnuProperties", "mnuAutoNumber"})
        FindMenu(menu)->close();
}

void MainMenu::OpenPopUp(PopUp menu)
{
    FindMenu(MenuName(menu))->popup(QCursor::pos());
}

bool MainMenu::Holds(Enabled when) const
{
    const bool visible = m_session.Settings.MainVisible;
    const bool layout = !m_session.CurrentLayoutName.isEmpty();
    switch (when) {
    case Enabled::WhileVisible:
        return visible;
    case Enabled::WithLayout:
        return layout;
    case Enabled::WhileVisibleWithLayout:
        return visible && layout;
    case Enabled::WithSelection:
        return m_session.Document.SelectedObject != nullptr;
    case Enabled::WithStepBack:
        return CanUndoDesign(m_session);
    case Enabled::WithStepForward:
        return CanRedoDesign(m_session);
    case Enabled::WithObject:
        return m_session.Document.SelectedObject != nullptr;
    case Enabled::WithImage: {
        const CardObject* object = m_session.Document.SelectedObject;
        return object != nullptr && object->IsImage();
    }
    case Enabled::Always:
        break;
    }
    return true;
}

bool MainMenu::IsTool(const MenuRow& row) const
{
    return row.ToolAction != nullptr && m_session.Options.DesignTools;
}

Enabled MainMenu::WhenOf(const MenuRow& row) const
{
    return IsTool(row) ? row.ToolWhen : row.When;
}

bool MainMenu::CanRun(const MenuRow& row) const
{
    for (const MenuRow* at = &row; at != nullptr; at = RowOf(at->Parent)) {
        if (!Holds(WhenOf(*at)))
            return false;
    }
    return true;
}

void MainMenu::Run(const MenuRow& row)
{
    // The tick follows the station, not the press: the command may do nothing.
    if (row.Ticked)
        MirrorTick(*row.Ticked, m_session.Face.IsTicked(*row.Ticked));
    // The timers disable menus a little later than a record removes the object or layout that a
    // command works on.
    const MenuAction action = IsTool(row) ? row.ToolAction : row.Action;
    if (action == nullptr || !CanRun(row))
        return;
    RunOrEnd([&] {
        NoteDesign(m_session);
        action(m_session, m_window);
        NoteDesign(m_session);
    });
}

void MainMenu::ChooseField(int number)
{
    // A record that has just begun has no values yet, while the menu still shows those of the last
    // one.
    if (number <= m_session.FieldValues.Count())
        RunOrEnd([&] {
            NoteDesign(m_session);
            ChooseDataField(m_session, number);
            NoteDesign(m_session);
        });
}

void MainMenu::UpdateEnabled()
{
    for (const Entry& entry : m_entries) {
        const Enabled when = WhenOf(*entry.Row);
        // Entries that need a selection are enabled and disabled by the document.
        if (when != Enabled::Always && when != Enabled::WithSelection)
            entry.Action->setEnabled(Holds(when));
    }
}

void MainMenu::UpdateStartCaptions()
{
    Find("cmdAbout")->setText(AboutCaption());
    SetIcons();
    Find("cmdImportSession")->setText(QStringLiteral("Vantrel 4 \u00a9 Session.ini"));
}

} // namespace vantrel
