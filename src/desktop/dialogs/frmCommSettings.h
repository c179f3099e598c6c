#pragma once

#include "station/capture/CommSettings.h"
#include <QDialog>
#include <array>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QTabWidget;

namespace vantrel {

class Session;

class DesktopUpDown;

/// The dialog in which an operator chooses the ports a station listens on. The boxes "Use This
/// Feature" act at once, even when the dialog opens; everything else is applied by "Ok".
class frmCommSettings : public QDialog
{
    Q_OBJECT

public:
    frmCommSettings(Session& session, QWidget* parent);

    /// The settings text that the serial choices give.
    QString GetCommSettings() const { return vantrel::GetCommSettings(Boxes()); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* MakeNetworkPage();
    QWidget* MakeSerialPage();
    QWidget* MakeParallelPage();
    void FillPorts();
    void AddCombo(QFormLayout& form, const char* caption, QComboBox& box);
    QGroupBox* MakeStopBits();
    QGroupBox* MakeFlow();
    QCheckBox* MakeFeature(const char* name, const CommFeature& feature);

    void Show(const CommBoxes& boxes);
    /// The present values of the controls.
    CommBoxes Boxes() const;
    void Use(const CommFeature& feature, bool on);
    void EnableNetwork();
    void ChooseDevice(int row);
    void ChoosePort(int row);
    void FollowPortText(const QString& text);
    void Save();

    Session& m_session;
    QTabWidget* m_tabs;
    QCheckBox* m_useNetwork;
    QWidget* m_networkBoxes;
    QComboBox* m_devices;
    QLineEdit* m_port;
    DesktopUpDown* m_portArrows;
    QCheckBox* m_multiConnect;
    QCheckBox* m_useSerial;
    QListWidget* m_ports;
    QComboBox* m_speed;
    QComboBox* m_parity;
    QComboBox* m_dataBits;
    std::array<QRadioButton*, CommStopBits.size()> m_stopBits{};
    std::array<QRadioButton*, CommFlows.size()> m_flows{};
    QCheckBox* m_useParallel;
    std::int16_t m_selectedSerialPort = 0;
    std::int16_t m_selectedFlowControl = 0;
};

} // namespace vantrel
