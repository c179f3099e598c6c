#include "desktop/dialogs/frmForms.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/dialogs/DesktopLayoutList.h"
#include "station/session/Session.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QTimer>

namespace vantrel {

namespace {
constexpr double LiftTwips = 500;
constexpr int RecordsInterval = 100;
constexpr QSize FirstSize{640, 420};
} // namespace

frmForms::frmForms(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_records(session.RecordQueue),
      m_objects(MakeControl<QListWidget>("tvwObjects", this)),
      m_viewField(MakeControl<QLabel>("lblViewField", this)),
      m_layouts(MakeControl<DesktopLayoutList>("lstLayouts", session, this))
{
    setObjectName(QStringLiteral("frmForms"));
    setWindowTitle(QStringLiteral("Document Generator"));
    auto* lists = new QHBoxLayout;
    lists->addLayout(MakeRecords(), 3);
    lists->addLayout(MakeLayouts(), 2);
    auto* column = new QVBoxLayout(this);
    column->addLayout(lists, 1);
    column->addLayout(MakeButtons());
    resize(FirstSize);
    CentreOver(*this, parent, LiftTwips);
    ShowRecords();

    auto* watch = new QTimer(this);
    watch->setObjectName(QStringLiteral("tmrRecs"));
    connect(watch, &QTimer::timeout, this, [this] {
        if (m_records.LookForRecords())
            ShowRecords();
    });
    watch->start(RecordsInterval);
}

QLayout* frmForms::MakeRecords()
{
    auto* caption = new QLabel(QStringLiteral("Objects currently in que"), this);
    caption->setBuddy(m_objects);
    m_objects->setAccessibleName(caption->text());
    m_objects->setUniformItemSizes(true);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_objects->setIconSize({icon, icon});
    connect(m_objects, &QListWidget::itemSelectionChanged, this, [this] {
        for (const QListWidgetItem* line : m_objects->selectedItems())
            m_chosen = line->data(Qt::UserRole).toString();
    });
    auto* arrows = MakeControl<DesktopUpDown>("udField", QStringLiteral("View data field"), this);
    setTabOrder(m_objects, arrows);
    setTabOrder(arrows, m_layouts);
    connect(arrows, &DesktopUpDown::Up, this, [this] {
        m_records.ViewNextField();
        ShowRecords();
    });
    connect(arrows, &DesktopUpDown::Down, this, [this] {
        m_records.ViewFieldBefore();
        ShowRecords();
    });
    auto* row = new QHBoxLayout;
    row->addWidget(m_viewField);
    row->addWidget(arrows);
    row->addStretch();
    auto* column = new QVBoxLayout;
    column->addWidget(caption);
    column->addWidget(m_objects, 1);
    column->addLayout(row);
    return column;
}

QLayout* frmForms::MakeLayouts()
{
    auto* caption = new QLabel(QStringLiteral("Available Forms / Layouts"), this);
    caption->setBuddy(m_layouts);
    m_layouts->setAccessibleName(caption->text());
    auto* column = new QVBoxLayout;
    column->addWidget(caption);
    column->addWidget(m_layouts, 1);
    return column;
}

QLayout* frmForms::MakeButtons()
{
    auto* clear = MakeControl<QPushButton>("cmdClear", QStringLiteral("C&lear"), this);
    m_print = MakeControl<QPushButton>("cmdPrint", QStringLiteral("&Print"), this);
    auto* cancel = MakeControl<QPushButton>("cmdCancel", QStringLiteral("Close"), this);
    m_print->setDefault(true);
    for (QPushButton* other : {clear, cancel})
        other->setAutoDefault(false);
    connect(m_print, &QPushButton::clicked, this, &frmForms::Print);
    connect(clear, &QPushButton::clicked, this, [this] {
        m_records.Clear();
        ShowRecords();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);
    auto* row = new QHBoxLayout;
    row->addWidget(clear);
    row->addStretch();
    row->addWidget(m_print);
    row->addWidget(cancel);
    return row;
}

void frmForms::ShowRecords()
{
    m_viewField->setText(QStringLiteral("View data field %1").arg(m_records.ViewedField()));
    // The clicked record stays chosen, whatever value the list shows of it.
    const QSignalBlocker quiet(m_objects);
    m_objects->clear();
    const QIcon icon = style()->standardIcon(QStyle::SP_FileIcon);
    for (const RecordList::Line& line : m_records.Lines()) {
        auto* item = new QListWidgetItem(icon, ShownLine(line.Text), m_objects);
        item->setData(Qt::UserRole, line.RawData);
    }
}

void frmForms::Print()
{
    // The station may close this window while the cards print, so printing uses nothing of the
    // window.
    const QPointer<frmForms> self(this);
    const QString chosen = m_chosen;
    // A second press during the job would print every layout again.
    m_print->setEnabled(false);
    PrintOnLayouts(m_session, chosen, m_layouts->Marked());
    if (self.isNull())
        return;
    m_print->setEnabled(true);
    setWindowTitle(QStringLiteral("  Document Generator"));
}

} // namespace vantrel
