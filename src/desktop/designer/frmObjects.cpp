#include "desktop/designer/frmObjects.h"
#include "card/ObjectArrange.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopTable.h"
#include "desktop/controls/RunTimeError.h"
#include "desktop/designer/ObjectsModel.h"
#include "station/commands/ObjectCommands.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/DesignSteps.h"
#include "station/session/Session.h"
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QTableView>
#include <QVBoxLayout>
#include <array>

namespace vantrel {

namespace {

/// Widths of the columns in average characters, in their order.
constexpr std::array<int, ObjectColumnCount> ColumnWidths{26, 28, 8, 12, 12, 13, 13};
constexpr int RowsSeen = 12;

} // namespace

frmObjects::frmObjects(Session& session, QWidget* parent)
    // As a tool of the main window it stays above it, and the menu's keys work in it.
    : QDialog(parent, Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_session(session), m_model(new ObjectsModel(session, this)),
      m_list(MakeControl<QTableView>("lstObjects", this)),
      m_told(MakeControl<QLabel>("lblTold", this))
{
    setObjectName(QStringLiteral("frmObjects"));
    setWindowTitle(QStringLiteral("Objects"));
    MakeList();
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_list, 1);
    column->addWidget(m_told);
    connect(&session.Document, &CardDocument::Shown, this, &frmObjects::FollowSoon);
    connect(&session.Document, &CardDocument::Hidden, this, &frmObjects::FollowSoon);
    connect(&session.Document, &CardDocument::Changed, this, &frmObjects::FollowSoon);
    connect(&session.Face, &StationFace::DesignChanged, this, &frmObjects::FollowSoon);
    connect(&session.Face, &StationFace::CaptionChanged, this, &frmObjects::FollowSoon);
    Follow();
    CentreOver(*this, parent);
}

void frmObjects::MakeList()
{
    m_list->setModel(m_model);
    PrepareTable(*m_list, *this);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setAccessibleName(windowTitle());
    m_list->setAccessibleDescription(QStringLiteral("The objects of the page, the topmost first"));
    m_list->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    const int character = fontMetrics().averageCharWidth();
    int width = 2 * m_list->frameWidth();
    for (std::size_t column = 0; column < ColumnWidths.size(); ++column) {
        m_list->setColumnWidth(static_cast<int>(column), ColumnWidths[column] * character);
        width += ColumnWidths[column] * character;
    }
    m_list->horizontalHeader()->setStretchLastSection(false);
    m_list->horizontalHeader()->setSectionResizeMode(static_cast<int>(ObjectColumn::Text),
                                                     QHeaderView::Stretch);
    m_list->installEventFilter(this);
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmObjects::SelectChosen);
    const int rows = RowsSeen * m_list->verticalHeader()->defaultSectionSize();
    resize(width + 2 * style()->pixelMetric(QStyle::PM_LayoutLeftMargin) +
               style()->pixelMetric(QStyle::PM_ScrollBarExtent),
           rows);
}

bool frmObjects::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_list || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return QDialog::eventFilter(watched, event);
    const int rows = m_model->rowCount();
    const bool isChosen = m_list->selectionModel()->hasSelection();
    switch (key.key()) {
    case Qt::Key_Delete:
        // The question is asked when the key has been dealt with.
        if (!key.isAutoRepeat())
            QMetaObject::invokeMethod(this, &frmObjects::Delete, Qt::QueuedConnection);
        return true;
    case Qt::Key_Home:
        m_list->selectRow(0);
        return true;
    case Qt::Key_End:
        m_list->selectRow(rows - 1);
        return true;
    case Qt::Key_Down:
    case Qt::Key_Up:
        // The first arrow key chooses a row, and does not go on from one that looks like all
        // others.
        if (isChosen || rows == 0)
            return false;
        m_list->selectRow(key.key() == Qt::Key_Down ? 0 : rows - 1);
        return true;
    default:
        return false;
    }
}

void frmObjects::FollowSoon()
{
    // A record changes every object of the page; the list follows once for all of them.
    if (m_followAsked)
        return;
    m_followAsked = true;
    QMetaObject::invokeMethod(this, &frmObjects::Follow, Qt::QueuedConnection);
}

void frmObjects::Follow()
{
    m_followAsked = false;
    const QScopedValueRollback following(m_isFollowing, true);
    m_model->Follow();
    ChooseSelected();
    const int count = m_model->rowCount();
    const int page = m_session.CurrentParams.PageIndex;
    if (m_session.CurrentLayoutName.isEmpty())
        m_told->setText(QStringLiteral("No layout is open."));
    else if (count == 1)
        m_told->setText(QStringLiteral("1 object on page %1").arg(page));
    else
        m_told->setText(
            QStringLiteral("%1 objects on page %2, the topmost first").arg(count).arg(page));
}

void frmObjects::ChooseSelected()
{
    const CardDocument& document = m_session.Document;
    QItemSelection rows;
    for (const CardObject* object : SelectedObjects(document)) {
        if (const int row = m_model->RowOf(*object); row >= 0)
            rows.select(m_model->index(row, 0), m_model->index(row, ObjectColumnCount - 1));
    }
    QItemSelectionModel& chosen = *m_list->selectionModel();
    if (chosen.selection() != rows)
        chosen.select(rows, QItemSelectionModel::ClearAndSelect);
    const CardObject* selected = document.SelectedObject;
    if (selected == nullptr || chosen.isRowSelected(chosen.currentIndex().row(), {}))
        return;
    const QModelIndex current = m_model->index(m_model->RowOf(*selected), 0);
    chosen.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    m_list->scrollTo(current);
}

void frmObjects::SelectChosen()
{
    CardDocument& document = m_session.Document;
    if (m_isFollowing || document.Drag.Mode != DragMode::None)
        return;
    std::vector<CardObject*> objects;
    const int current = m_list->currentIndex().row();
    for (const QModelIndex& row : m_list->selectionModel()->selectedRows()) {
        CardObject* object = m_model->ObjectAt(row.row());
        if (object != nullptr && row.row() != current)
            objects.push_back(object);
    }
    // The grips stand around the row that the keyboard is at.
    CardObject* last = m_model->ObjectAt(current);
    if (last != nullptr && m_list->selectionModel()->isRowSelected(current, {}))
        objects.push_back(last);
    SelectObjects(document, m_session.Face, objects);
    document.Refresh();
    m_session.Face.NotifyDesign();
}

void frmObjects::Delete()
{
    if (m_session.Document.SelectedObject == nullptr)
        return;
    RunOrEnd([&] {
        NoteDesign(m_session);
        DeleteSelectedObject(m_session);
        NoteDesign(m_session);
    });
}

} // namespace vantrel
