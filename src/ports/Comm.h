#pragma once

#include "ports/SerialLine.h"

namespace vantrel {

/// The station's serial port. Settings can be changed while it is closed; invalid settings leave
/// the present ones in force. It only moves characters; `SerialCapture` processes them.
class Comm : public QObject
{
    Q_OBJECT

public:
    /// @param mappingFile  a settings file whose section "Serial Ports" may name the device of a
    /// port, as in "COM3=/dev/ttyUSB0"; a port without a key is /dev/ttyS followed by its number
    /// less one
    explicit Comm(QString mappingFile);
    ~Comm() override;

    /// Whether the port is open.
    bool PortOpen() const { return m_line != nullptr; }
    /// Opens or closes the port. Opening fails with `InvalidCall` if the port does not exist, is in
    /// use by another process or is already open. Closing never fails and discards unread
    /// characters.
    void SetPortOpen(bool open);

    /// 1 is COM1.
    int CommPort() const { return m_commPort; }
    /// Sets the port number. Fails with `InvalidCall` while the port is open. Any number is
    /// accepted; one without a port fails when it is opened.
    void SetCommPort(int number);

    /// The settings in force, such as "9600,n,8,1".
    QString Settings() const { return SerialSettingsText(m_settings); }
    /// Sets speed, parity, data bits and stop bits. Fails with `InvalidCall` if the text is not a
    /// valid settings text or the open port refuses it; the present settings then stay. Settings
    /// that the device refuses when it is opened are replaced by the last ones it accepted.
    void SetSettings(const QString& text);
    /// Sets flow control: 0 none, 1 Xon / Xoff, 2 hardware. Fails with `InvalidCall` for other
    /// numbers and if the open port refuses it; the present one then stays.
    void SetHandshaking(std::int16_t number);

    /// Takes all received characters (code page 1252); empty if there are none.
    QString Input();

    /// Replaces the function that opens devices.
    void SetLineMaker(SerialLineMaker maker) { m_maker = std::move(maker); }

Q_SIGNALS:
    /// Emitted when characters arrived or the device was removed. It is not emitted while its own
    /// handler runs; events in the meantime are signalled once after the handler returns.
    void OnComm();

private:
    QString DevicePath() const;
    void Adjust();
    void Close();
    void TakeGone();
    void Serve();

    QString m_mappingFile;
    SerialLineMaker m_maker = OpenSerialLine;
    SerialLine* m_line = nullptr;
    int m_commPort = 1;
    SerialSettings m_settings;
    FlowControl m_flow = FlowControl::None;
    /// The values that a device accepted last.
    SerialSettings m_takenSettings;
    FlowControl m_takenFlow = FlowControl::None;
    /// The last bytes of a removed device.
    QByteArray m_lastBytes;
    bool m_inHandler = false;
    bool m_eventWaits = false;
};

} // namespace vantrel
