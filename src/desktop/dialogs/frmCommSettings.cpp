#include "desktop/dialogs/frmCommSettings.h"
#include "base/Convert.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/controls/RunTimeError.h"
#include "station/session/Session.h"
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>
#include <limits>

namespace vantrel {

namespace {

constexpr int ParallelTab = 2;
constexpr double LiftTwips = 400;

/// The row that is ticked, or -1.
template <typename Buttons>
int TickedRow(const Buttons& buttons)
{
    for (std::size_t row = 0; row < buttons.size(); ++row) {
        if (buttons[row]->isChecked())
            return static_cast<int>(row);
    }
    return -1;
}

template <typename Buttons>
void TickRow(const Buttons& buttons, int row)
{
    if (row >= 0)
        buttons[static_cast<std::size_t>(row)]->setChecked(true);
}

} // namespace

frmCommSettings::frmCommSettings(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_tabs(MakeControl<QTabWidget>("TabStrip", this))
{
    setObjectName(QStringLiteral("frmCommSettings"));
    setWindowTitle(QStringLiteral("Communication Settings"));
    setModal(true);
    m_tabs->addTab(MakeNetworkPage(), QStringLiteral("IP Network"));
    m_tabs->addTab(MakeSerialPage(), QStringLiteral("Serial"));
    m_tabs->addTab(MakeParallelPage(), QStringLiteral("Parallel"));
    m_tabs->setTabEnabled(ParallelTab, false);

    auto* buttons = new QDialogButtonBox(this);
    auto* save = MakeControl<QPushButton>("cmdSave", QStringLiteral("&Ok"), this);
    auto* cancel = MakeControl<QPushButton>("Command2", QStringLiteral("&Cancel"), this);
    buttons->addButton(save, QDialogButtonBox::ActionRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, [this] { RunOrEnd([this] { Save(); }); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);

    auto* column = new QVBoxLayout(this);
    column->addWidget(m_tabs);
    column->addWidget(buttons);

    Show(ReadCommBoxes(session.Settings, session.Comm));
    Use(NetworkFeature, session.Settings.UseIP);
    Use(ParallelFeature, session.Settings.UseParallel);
    Use(SerialFeature, session.Settings.UseSerial);
    PlaceBySizeOf(*this, parent, LiftTwips);
}

// The space bar ticks a row of the list of ports as a click does.
bool frmCommSettings::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ports && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        ChoosePort(m_ports->currentRow());
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmCommSettings::Show(const CommBoxes& boxes)
{
    m_port->setText(boxes.Port);
    EnableNetwork();
    m_speed->setCurrentIndex(boxes.Speed);
    m_parity->setCurrentIndex(boxes.Parity);
    m_dataBits->setCurrentIndex(boxes.DataBits);
    TickRow(m_stopBits, boxes.StopBits);
    TickRow(m_flows, boxes.Flow);
    m_selectedFlowControl = boxes.SelectedFlowControl;
    ChoosePort(boxes.SelectedSerialPort - 1);
}

CommBoxes frmCommSettings::Boxes() const
{
    return {m_port->text(),           m_speed->currentIndex(),
            m_parity->currentIndex(), m_dataBits->currentIndex(),
            TickedRow(m_stopBits),    TickedRow(m_flows),
            m_selectedSerialPort,     m_selectedFlowControl};
}

void frmCommSettings::Use(const CommFeature& feature, bool on)
{
    UseFeature(m_session, feature, on);
    if (feature.Key != SettingNumber::UseIP)
        return;
    EnableNetwork();
    m_multiConnect->setFocus();
}

void frmCommSettings::EnableNetwork()
{
    m_networkBoxes->setEnabled(m_useNetwork->isChecked());
    m_port->setEnabled(m_devices->currentIndex() != static_cast<int>(CommDevice::JetDirect));
}

void frmCommSettings::ChooseDevice(int row)
{
    m_port->setText(PortOfDevice(m_session.Sock, static_cast<CommDevice>(row)));
    EnableNetwork();
}

void frmCommSettings::ChoosePort(int row)
{
    for (int other = 0; other < m_ports->count(); ++other)
        m_ports->item(other)->setCheckState(other == row ? Qt::Checked : Qt::Unchecked);
    m_ports->setCurrentRow(row);
    m_selectedSerialPort = static_cast<std::int16_t>(row + 1);
}

// The arrows take the number over within their range; the text stays as it was typed.
void frmCommSettings::FollowPortText(const QString& text)
{
    const QSignalBlocker quiet(m_portArrows);
    m_portArrows->SetValue(
        static_cast<int>(std::min<double>(Val(text), std::numeric_limits<std::int32_t>::max())));
}

void frmCommSettings::Save()
{
    SaveCommBoxes(m_session, Boxes());
    close();
}

} // namespace vantrel
