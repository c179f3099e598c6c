#include "desktop/dialogs/frmPrinters2.h"
#include "desktop/composers/frmSerialize.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/controls/RunTimeError.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/dialogs/PrinterIcons.h"
#include "printers/Printer.h"
#include "station/print/PrinterSelection.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeWidget>

namespace vantrel {

namespace {

constexpr double PlaceTwips = 1200;
constexpr QSize FirstSize{640, 520};
constexpr int ConfigInterval = 200;
constexpr int RefreshInterval = 500;
/// Data of a row besides its texts: its key, or the code of its kind.
constexpr int RowData = Qt::UserRole;
/// Whether the queue of a row takes jobs.
constexpr int RowAcceptsJobs = Qt::UserRole + 1;

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

void frmPrinters2::StartTimers()
{
    auto* configuring = MakeControl<QTimer>("tmrConfig", this);
    connect(configuring, &QTimer::timeout, this, &frmPrinters2::CheckConfigurable);
    configuring->start(ConfigInterval);
    // This timer is never started: the list is rebuilt by its button only.
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
    for (const PrinterKindRow& row : ReadPrinterKinds(m_session.LayoutDb)) {
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
        AddPrinter(LookAtPrinter(m_session.Printers, name));
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

void frmPrinters2::closeEvent(QCloseEvent* event)
{
    if (event->spontaneous())
        event->ignore();
    else
        QDialog::closeEvent(event);
}

void frmPrinters2::ShowSavedValues()
{
    const LayoutParamsRecord& params = m_session.CurrentParams;
    // A refresh keeps the printer that the operator chose, not this one.
    const QSignalBlocker notChosen(m_printers);
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
    // The main window is its parent, since it stays open when this dialog closes.
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
