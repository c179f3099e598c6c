#include "desktop/dialogs/frmMacro.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/dialogs/DesktopLayoutList.h"
#include "station/macro/MacroCommands.h"
#include "station/session/Session.h"
#include <QEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTreeWidget>

namespace vantrel {

namespace {

constexpr int IdColumn = 0;
constexpr int NameColumn = 1;

/// Size for a handful of macros and layouts; longer names widen the window up to the largest size.
constexpr QSize FirstSize{480, 320};
constexpr QSize LargestSize{900, 600};
/// Characters of a layout's name that are shown at least.
constexpr int NameCharacters = 24;

} // namespace

frmMacro::frmMacro(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session),
      m_layouts(MakeControl<DesktopLayoutList>("lstLayouts", session, this)),
      m_macros(MakeControl<QTreeWidget>("lstMacros", this))
{
    setObjectName(QStringLiteral("frmMacro"));
    setWindowTitle(QStringLiteral("Define Macros"));
    MakeControls();
    FillMacros();
    ShowMarks();
    resize(sizeHint().expandedTo(FirstSize).boundedTo(LargestSize));
    // This is set only now, since a stretched column does not report the width that its names need.
    m_macros->header()->setStretchLastSection(true);
}

void frmMacro::MakeControls()
{
    m_macros->setAccessibleName(QStringLiteral("Macros"));
    m_macros->setColumnCount(2);
    m_macros->setHeaderHidden(true);
    m_macros->setRootIsDecorated(false);
    m_macros->setAllColumnsShowFocus(true);
    m_macros->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_macros->header()->setStretchLastSection(false);
    for (QAbstractItemView* list :
         {static_cast<QAbstractItemView*>(m_macros), static_cast<QAbstractItemView*>(m_layouts)})
        list->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    m_layouts->setAccessibleName(QStringLiteral("Layouts"));

    auto* macrosLabel = new QLabel(QStringLiteral("&Macros"), this);
    macrosLabel->setBuddy(m_macros);
    auto* layoutsLabel = new QLabel(QStringLiteral("&Layouts"), this);
    layoutsLabel->setBuddy(m_layouts);
    auto* save = MakeControl<QPushButton>("cmdSave", QStringLiteral("&Save Active Macro"), this);
    save->setDefault(true);
    auto* close = MakeControl<QPushButton>("cmdClose", QStringLiteral("Close"), this);

    connect(m_macros, &QTreeWidget::itemSelectionChanged, this, &frmMacro::ShowMarks);
    // A click on the selected row reads its marks again.
    connect(m_macros, &QTreeWidget::itemClicked, this, &frmMacro::ShowMarks);
    connect(save, &QPushButton::clicked, this, [this] {
        SaveActiveMacro(m_session, SelectedMacro(), m_layouts->Marked());
        QDialog::close();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::close);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(close);
    auto* grid = new QGridLayout(this);
    grid->setRowStretch(1, 1);
    m_layouts->setMinimumWidth(NameCharacters * fontMetrics().averageCharWidth());
    grid->addWidget(macrosLabel, 0, 0);
    grid->addWidget(layoutsLabel, 0, 1);
    grid->addWidget(m_macros, 1, 0);
    grid->addWidget(m_layouts, 1, 1);
    grid->addLayout(buttons, 3, 0, 1, 2);
    setTabOrder(m_macros, m_layouts);
    if (m_session.Options.DesignTools) {
        m_layouts->ShowGone();
        grid->addLayout(MakeTools(), 2, 0);
        setTabOrder(m_remove, m_layouts);
    }
    setTabOrder(m_layouts, save);
    setTabOrder(save, close);
}

QLayout* frmMacro::MakeTools()
{
    auto* tools = new QHBoxLayout;
    QWidget* last = m_macros;
    const auto add = [&](const char* name, const QString& caption, auto press) {
        auto* button = MakeControl<QPushButton>(name, caption, this);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, press);
        tools->addWidget(button);
        setTabOrder(last, button);
        last = button;
        return button;
    };
    // A record that runs while the operator is asked may close the window.
    const QPointer<frmMacro> self(this);
    add("cmdNewMacro", QStringLiteral("&New ..."), [self] {
        const QString name = MakeMacro(self->m_session);
        if (!self.isNull() && !name.isEmpty())
            self->ShowAgain(name);
    });
    m_rename = add("cmdRenameMacro", QStringLiteral("&Rename ..."), [self] {
        const QString name = RenameMacroOf(self->m_session, self->SelectedMacro().Name);
        if (!self.isNull() && !name.isEmpty())
            self->ShowAgain(name);
    });
    m_remove = add("cmdRemoveMacro", QStringLiteral("Remo&ve ..."), [self] {
        const bool isRemoved = RemoveMacroOf(self->m_session, self->SelectedMacro().Name);
        if (!self.isNull() && isRemoved)
            self->ShowAgain(ActiveMacroText(self->m_session.Settings));
    });
    return tools;
}

void frmMacro::FillMacros()
{
    const QList<MacroRow> macros = MacroRows(m_session.LayoutDb);
    for (const MacroRow& macro : macros)
        new QTreeWidgetItem(m_macros, {QString::number(macro.Id), macro.Name});
}

bool frmMacro::event(QEvent* event)
{
    // Without a window manager a window is shown and never becomes active.
    const bool comesUp = event->type() == QEvent::WindowActivate || event->type() == QEvent::Show;
    // Where macros are made here, a box that asked for a name leaves the selection as it is. Events
    // come from the window's making on, before it knows whether it was shown.
    if (comesUp && !(m_session.Options.DesignTools && m_wasShown)) {
        m_wasShown = true;
        SelectActive();
    }
    return QDialog::event(event);
}

void frmMacro::ShowAgain(const QString& name)
{
    m_macros->clear();
    FillMacros();
    Select(name);
    ShowMarks();
}

void frmMacro::SelectActive()
{
    Select(ActiveMacroText(m_session.Settings));
}

void frmMacro::Select(const QString& name)
{
    const QList<QTreeWidgetItem*> found =
        m_macros->findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive, NameColumn);
    if (found.isEmpty())
        m_macros->clearSelection();
    else
        m_macros->setCurrentItem(found.constFirst());
}

MacroRow frmMacro::SelectedMacro() const
{
    const QList<QTreeWidgetItem*> selected = m_macros->selectedItems();
    if (selected.isEmpty())
        return {};
    return {selected.constFirst()->text(IdColumn).toInt(), selected.constFirst()->text(NameColumn)};
}

void frmMacro::ShowMarks()
{
    for (QPushButton* tool : {m_rename, m_remove}) {
        if (tool != nullptr)
            tool->setEnabled(SelectedMacro().Id != 0);
    }
    m_layouts->SetMarked(LayoutsGivenTo(m_session.LayoutDb, SelectedMacro().Id));
}

} // namespace vantrel
