#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/dialogs/frmCommSettings.h"
#include "station/session/Session.h"
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QStyle>
#include <QVBoxLayout>
#include <limits>

namespace vantrel {

namespace {

QString Element(const char* name, std::size_t index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1StringView(name)).arg(index);
}

template <typename Table>
void FillCombo(QComboBox& box, const Table& table)
{
    for (const CommChoice& choice : table)
        box.addItem(QLatin1StringView(choice.Caption));
}

} // namespace

QCheckBox* frmCommSettings::MakeFeature(const char* name, const CommFeature& feature)
{
    auto* box = MakeControl<QCheckBox>(name, QStringLiteral("Use This Feature"), this);
    box->setChecked(m_session.Settings.*feature.Flag);
    connect(box, &QCheckBox::toggled, this, [this, &feature](bool on) { Use(feature, on); });
    return box;
}

QWidget* frmCommSettings::MakeNetworkPage()
{
    auto* page = new QWidget(this);
    m_useNetwork = MakeFeature("chkUseIP", NetworkFeature);
    m_networkBoxes = new QWidget(page);
    m_devices = MakeControl<QComboBox>("cbxDevices", m_networkBoxes);
    for (const char* device : CommDevices)
        m_devices->addItem(QLatin1StringView(device));
    m_devices->setCurrentIndex(static_cast<int>(CommDevice::Custom));
    m_port = MakeControl<QLineEdit>("txtPort", m_networkBoxes);
    m_port->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), m_port));
    m_portArrows =
        MakeControl<DesktopUpDown>("udPort", QStringLiteral("TCP/IP Port"), m_networkBoxes);
    m_portArrows->StandBeside(*m_port);
    m_portArrows->SetRange(0, std::numeric_limits<std::int32_t>::max());
    auto* forceClose = MakeControl<QCheckBox>(
        "chkForceClose", QStringLiteral("Force socket to close after printing"), m_networkBoxes);
    m_multiConnect = MakeControl<QCheckBox>(
        "chkMultiConnect", QStringLiteral("Allow Concurrent Connections"), m_networkBoxes);

    auto* port = new QHBoxLayout;
    port->setSpacing(0);
    port->addWidget(m_port);
    port->addWidget(m_portArrows);
    auto* form = new QFormLayout(m_networkBoxes);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    AddCombo(*form, "Emulate Device", *m_devices);
    auto* portLabel = new QLabel(QStringLiteral("TCP/IP Port"), m_networkBoxes);
    portLabel->setBuddy(m_port);
    portLabel->setMinimumHeight(m_portArrows->sizeHint().height());
    form->addRow(portLabel, port);
    form->addRow(forceClose);
    form->addRow(m_multiConnect);
    auto* column = new QVBoxLayout(page);
    column->addWidget(m_useNetwork);
    column->addWidget(m_networkBoxes);
    column->addStretch();

    connect(m_devices, &QComboBox::currentIndexChanged, this, &frmCommSettings::ChooseDevice);
    connect(m_port, &QLineEdit::textChanged, this, &frmCommSettings::FollowPortText);
    connect(m_portArrows, &DesktopUpDown::ValueChanged, this,
            [this](int value) { m_port->setText(QString::number(value)); });
    return page;
}

void frmCommSettings::AddCombo(QFormLayout& form, const char* caption, QComboBox& box)
{
    auto* label = new QLabel(QLatin1StringView(caption), box.parentWidget());
    label->setBuddy(&box);
    // Screen readers take its present text for its name, so the caption is set as its description.
    box.setAccessibleDescription(QLatin1StringView(caption));
    box.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    form.addRow(label, &box);
}

QWidget* frmCommSettings::MakeSerialPage()
{
    auto* page = new QWidget(this);
    m_useSerial = MakeFeature("chkUseSerial", SerialFeature);
    m_ports = MakeControl<QListWidget>("lstPorts", page);
    FillPorts();
    m_speed = MakeControl<QComboBox>("cbxSpeed", page);
    for (const char* speed : CommSpeeds)
        m_speed->addItem(QLatin1StringView(speed));
    m_parity = MakeControl<QComboBox>("cbxParity", page);
    FillCombo(*m_parity, CommParities);
    m_dataBits = MakeControl<QComboBox>("cbxDataBits", page);
    FillCombo(*m_dataBits, CommDataBits);

    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    AddCombo(*form, "Speed", *m_speed);
    AddCombo(*form, "Parity", *m_parity);
    AddCombo(*form, "Data Bits", *m_dataBits);
    auto* choices = new QVBoxLayout;
    choices->addLayout(form);
    choices->addWidget(MakeStopBits());
    choices->addWidget(MakeFlow());
    choices->addStretch();
    auto* row = new QHBoxLayout;
    row->addWidget(m_ports);
    row->addLayout(choices, 1);
    auto* column = new QVBoxLayout(page);
    column->addWidget(m_useSerial);
    column->addLayout(row);
    return page;
}

void frmCommSettings::FillPorts()
{
    m_ports->setAccessibleName(QStringLiteral("Serial ports"));
    for (int number = 1; number <= CommPortCount; ++number) {
        auto* row = new QListWidgetItem(QStringLiteral("COM%1").arg(number), m_ports);
        row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        row->setCheckState(Qt::Unchecked);
    }
    m_ports->setMinimumHeight(CommPortCount * m_ports->sizeHintForRow(0) +
                              2 * m_ports->frameWidth());
    m_ports->setMinimumWidth(m_ports->sizeHintForColumn(0) + 2 * m_ports->frameWidth() +
                             style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    m_ports->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    connect(m_ports, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* row) { ChoosePort(m_ports->row(row)); });
    m_ports->installEventFilter(this);
}

QGroupBox* frmCommSettings::MakeStopBits()
{
    auto* group = new QGroupBox(QStringLiteral("Stop Bits"), this);
    auto* row = new QHBoxLayout(group);
    for (std::size_t index = 0; index < CommStopBits.size(); ++index) {
        m_stopBits[index] = new QRadioButton(QLatin1StringView(CommStopBits[index].Caption), group);
        m_stopBits[index]->setObjectName(Element("rdoStopBits", index));
        row->addWidget(m_stopBits[index]);
    }
    return group;
}

QGroupBox* frmCommSettings::MakeFlow()
{
    auto* group = new QGroupBox(QStringLiteral("Flow Control"), this);
    auto* row = new QHBoxLayout(group);
    for (std::size_t index = 0; index < CommFlows.size(); ++index) {
        const CommFlow& flow = CommFlows[index];
        m_flows[index] = new QRadioButton(QLatin1StringView(flow.Caption), group);
        m_flows[index]->setObjectName(Element("rdoFlowControl", index));
        connect(m_flows[index], &QRadioButton::toggled, this, [this, &flow](bool on) {
            if (on)
                m_selectedFlowControl = flow.Value;
        });
        row->addWidget(m_flows[index]);
    }
    return group;
}

QWidget* frmCommSettings::MakeParallelPage()
{
    auto* page = new QWidget(this);
    m_useParallel = MakeFeature("chkParallel", ParallelFeature);
    auto* column = new QVBoxLayout(page);
    column->addWidget(m_useParallel);
    column->addStretch();
    return page;
}

} // namespace vantrel
