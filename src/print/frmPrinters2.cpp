#include "print/frmPrinters2.h"
#include "app/DesktopControls.h"
#include "app/DesktopUpDown.h"
#include "app/Operator.h"
#include "app/RunTimeError.h"
#include "app/ScreenUnits.h"
#include "app/Session.h"
#include "platform/Printer.h"
#include "print/PrinterIcons.h"
#include "print/PrinterSelection.h"
#include "shaping/frmSerialize.h"
#include <QBoxLayout>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QTreeWidget>
#include <limits>

namespace vantrel {

namespace {

constexpr double PlaceTwips = 1200;
constexpr double NameColumnTwips = 3160;
constexpr QSize FirstSize{640, 520};
constexpr int ConfigInterval = 200;
constexpr int RefreshInterval = 500;
constexpr int MostCopies = std::numeric_limits<std::int16_t>::max();
/// What a row has besides its texts: its key, or the code of its kind.
constexpr int RowData = Qt::UserRole;
/// Whether the queue of a row takes jobs.
constexpr int RowAcceptsJobs = Qt::UserRole + 1;
constexpr const char* OrientationCaptions[] = {"Portrait", "Landscape", "Default"};

QTreeWidget* MakeList(const char* name, const QString& caption, const QStringList& columns)
{
    auto* list = MakeControl<QTreeWidget>(name);
    list->setAccessibleName(caption);
    list->setHeaderLabels(columns);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setColumnWidth(0, ScreenPixels(NameColumnTwips));
    return list;
}

/// A list under its caption.
QWidget* Captioned(QTreeWidget* list)
{
    auto* part = new QWidget;
    auto* caption = new QLabel(list->accessibleName());
    caption->setBuddy(list);
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins({});
    column->addWidget(caption);
    column->addWidget(list);
    return part;
}

void SelectRow(QTreeWidget& list, QTreeWidgetItem* row)
{
    list.setCurrentItem(row);
    list.scrollToItem(row);
}

/// @return the selected row, null where there is none
QTreeWidgetItem* SelectedRow(const QTreeWidget& list)
{
    const auto selected = list.selectedItems();
    return selected.isEmpty() ? nullptr : selected.constFirst();
}

QString SelectedTag(const QTreeWidget& kinds)
{
    const QTreeWidgetItem* row = SelectedRow(kinds);
    return row == nullptr ? QString() : row->data(0, RowData).toString();
}

} // namespace

frmPrinters2::frmPrinters2(Session& session, QWidget* parent)
    : QDialog(parent, DialogWithoutClose), m_session(session)
{
    setObjectName(QStringLiteral("frmPrinters2"));
    setWindowTitle(QStringLiteral("Printer Selection   (Layout Dependant)"));
    auto* grid = new QGridLayout(this);
    grid->addWidget(MakePrinterPart(), 0, 0, 1, 2);
    grid->addWidget(MakeKindPart(), 1, 0, 1, 2);
    grid->addWidget(MakeOrientationPart(), 2, 0);
    grid->addWidget(MakeCopiesPart(), 2, 1);
    grid->addWidget(MakeButtons(), 0, 2, 3, 1);
    grid->setRowStretch(1, 3);
    grid->setRowStretch(0, 2);
    StartTimers();
    resize(FirstSize.expandedTo(sizeHint()));
    move(ScreenPixels(PlaceTwips), ScreenPixels(PlaceTwips));
}

QWidget* frmPrinters2::MakePrinterPart()
{
    m_printers = MakeList(
        "lvwPrinters", QStringLiteral("Available Printers"),
        {QStringLiteral("Printer Name"), QStringLiteral("Status"), QStringLiteral("Jobs")});
    connect(m_printers, &QTreeWidget::itemClicked, this,
            [this](const QTreeWidgetItem* row) { m_clicked = row->text(0); });
    return Captioned(m_printers);
}

QWidget* frmPrinters2::MakeKindPart()
{
    m_kinds = MakeList(
        "lvwTypes", QStringLiteral("Available Printer Types"),
        {QStringLiteral("Name"), QStringLiteral("Color Capable"), QStringLiteral("Dual Sided")});
    return Captioned(m_kinds);
}

QWidget* frmPrinters2::MakeOrientationPart()
{
    auto* group = new QGroupBox(QStringLiteral("Printer Orientation"));
    auto* column = new QVBoxLayout(group);
    for (std::size_t i = 0; i < std::size(m_orientations); ++i) {
        const QByteArray name = "optOrientation(" + QByteArray::number(static_cast<int>(i)) + ')';
        m_orientations[i] = MakeControl<QRadioButton>(name.constData(),
                                                      QString::fromLatin1(OrientationCaptions[i]));
        column->addWidget(m_orientations[i]);
    }
    return group;
}

QWidget* frmPrinters2::MakeCopiesPart()
{
    const QString caption = QStringLiteral("Copies");
    auto* group = new QGroupBox(caption);
    m_copies = MakeControl<QLabel>("lblCopies", QStringLiteral("0"));
    m_copies->setFrameShape(QFrame::StyledPanel);
    m_copies->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_copies->setMinimumWidth(m_copies->fontMetrics().horizontalAdvance(QStringLiteral("000000")));
    m_copiesArrows = MakeControl<DesktopUpDown>("udCopies", caption);
    m_copiesArrows->SetRange(0, MostCopies);
    connect(m_copiesArrows, &DesktopUpDown::ValueChanged, m_copies,
            [this](int value) { m_copies->setNum(value); });
    m_forceResize =
        MakeControl<QCheckBox>("chdForceResize", QStringLiteral("Force Document Resize"));

    auto* row = new QHBoxLayout;
    row->addWidget(m_copies);
    row->addWidget(m_copiesArrows);
    row->addStretch();
    auto* column = new QVBoxLayout(group);
    column->addLayout(row);
    column->addStretch();
    column->addWidget(m_forceResize);
    return group;
}

QWidget* frmPrinters2::MakeButtons()
{
    m_save = MakeControl<QPushButton>("cmdSave", QStringLiteral("Save"));
    m_save->setDefault(true);
    // Before the layout's values show there is nothing to save.
    m_save->setEnabled(false);
    auto* close = MakeControl<QPushButton>("cmdCancel", QStringLiteral("Close"));
    auto* refresh = MakeControl<QPushButton>("cmdRefresh", QStringLiteral("&Refresh"));
    m_configure = MakeControl<QPushButton>("cmdConfig", QStringLiteral("&Configure"));
    auto* preferences = MakeControl<QPushButton>("Command1", QStringLiteral("&Preferences"));
    connect(m_save, &QPushButton::clicked, this, &frmPrinters2::Save);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    connect(refresh, &QPushButton::clicked, this, [this] { BuildPrinters(); });
    connect(m_configure, &QPushButton::clicked, this, &frmPrinters2::Configure);

    auto* part = new QWidget;
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins({});
    column->addWidget(m_save);
    column->addWidget(close);
    column->addStretch();
    column->addWidget(refresh);
    column->addWidget(m_configure);
    column->addWidget(preferences);
    return part;
}

void frmPrinters2::StartTimers()
{
    auto* configuring = MakeControl<QTimer>("tmrConfig", this);
    connect(configuring, &QTimer::timeout, this, &frmPrinters2::CheckConfigurable);
    configuring->start(ConfigInterval);
    // Nothing starts this one: the list is rebuilt by its button only.
    auto* refreshing = MakeControl<QTimer>("tmrRefresh", this);
    refreshing->setInterval(RefreshInterval);
    connect(refreshing, &QTimer::timeout, refreshing, &QTimer::stop);
}

void frmPrinters2::Fill()
{
    if (m_filled)
        return;
    m_filled = true;
    const QPointer<frmPrinters2> self(this);
    m_session.Operator.LetEventsRun();
    if (!self || !BuildKinds() || !BuildPrinters())
        return;
    ShowSavedValues();
    CheckConfigurable();
    m_save->setEnabled(true);
}

bool frmPrinters2::BuildKinds()
{
    const QPointer<frmPrinters2> self(this);
    m_kinds->clear();
    for (const PrinterKindRow& row : ReadPrinterKinds(m_session)) {
        AddKind(row);
        m_session.Operator.LetEventsRun();
        if (!self)
            return false;
    }
    m_kinds->setColumnWidth(0, ScreenPixels(NameColumnTwips));
    return true;
}

void frmPrinters2::AddKind(const PrinterKindRow& row)
{
    auto* item = new QTreeWidgetItem(m_kinds, {row.Name, row.ColorCapable, row.DualSided});
    item->setData(0, RowData, row.Tag);
}

bool frmPrinters2::BuildPrinters()
{
    const QPointer<frmPrinters2> self(this);
    const int build = ++m_builds;
    m_printers->clear();
    const QStringList names = m_session.Printers.DeviceNames();
    for (const QString& name : names) {
        AddPrinter(LookAtPrinter(m_session, name));
        m_session.Operator.LetEventsRun();
        if (!self)
            return false;
        if (build != m_builds)
            return true;
    }
    m_printers->setColumnWidth(0, ScreenPixels(NameColumnTwips));
    return true;
}

void frmPrinters2::AddPrinter(const PrinterListRow& row)
{
    auto* item = new QTreeWidgetItem(m_printers, {row.DeviceName, row.Status, row.Jobs});
    item->setData(0, RowData, row.Key);
    item->setData(0, RowAcceptsJobs, row.AcceptsJobs);
    item->setIcon(0, PrinterIcon(row.AcceptsJobs, palette()));
    if (row.DeviceName == m_clicked)
        SelectRow(*m_printers, item);
}

void frmPrinters2::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || m_printers == nullptr)
        return;
    for (int i = 0; i < m_printers->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = m_printers->topLevelItem(i);
        row->setIcon(0, PrinterIcon(row->data(0, RowAcceptsJobs).toBool(), palette()));
    }
}

void frmPrinters2::ShowSavedValues()
{
    const LayoutParamsRecord& params = m_session.CurrentParams;
    for (int i = 0; i < m_printers->topLevelItemCount(); ++i) {
        if (QTreeWidgetItem* row = m_printers->topLevelItem(i);
            row->text(0) == params.PrinterDevice)
            SelectRow(*m_printers, row);
    }
    const QString tag = QString::number(params.PrinterType);
    for (int i = 0; i < m_kinds->topLevelItemCount(); ++i) {
        if (QTreeWidgetItem* row = m_kinds->topLevelItem(i);
            row->data(0, RowData).toString() == tag)
            SelectRow(*m_kinds, row);
    }
    m_orientations[static_cast<int>(OptionOf(params.PrinterOrientation))]->setChecked(true);
    m_copiesArrows->SetValue(params.PrinterCopies);
    m_copies->setNum(m_copiesArrows->Value());
}

void frmPrinters2::CheckConfigurable()
{
    m_configure->setEnabled(IsConfigurable(SelectedTag(*m_kinds)));
}

void frmPrinters2::Configure()
{
    // Over the main window: it stays when this dialog closes.
    RunOrEnd([this] { OpenDialog<frmSerialize>(m_session, parentWidget()); });
}

PrinterChoice frmPrinters2::Choice() const
{
    PrinterChoice choice;
    if (const QTreeWidgetItem* row = SelectedRow(*m_printers))
        choice.DeviceName = row->text(0);
    choice.KindTag = SelectedTag(*m_kinds);
    for (const auto option : {OrientationOption::Portrait, OrientationOption::Landscape}) {
        if (m_orientations[static_cast<int>(option)]->isChecked())
            choice.Orientation = option;
    }
    choice.Copies = m_copiesArrows->Value();
    choice.ForceResize = m_forceResize->isChecked();
    return choice;
}

void frmPrinters2::Save()
{
    SavePrinterChoice(m_session, Choice());
    close();
}

void OpenPrinterSelection(Session& session, QWidget* parent)
{
    session.Operator.ShowBusyPointer(true);
    OpenDialog<frmPrinters2>(session, parent).Fill();
    session.Operator.ShowBusyPointer(false);
}

} // namespace vantrel
