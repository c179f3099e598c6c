#pragma once

#include "ports/SerialLine.h"

namespace vantrel {

/// The station's one serial port, under the rules of its control: it takes settings while it is
/// shut, and keeps those that were in force where a text or the port refuses new ones. It only
/// moves characters; what they mean is serial capture's matter.
class Comm : public QObject
{
    Q_OBJECT

public:
    /// @param mappingFile  a settings file whose section "Serial Ports" may name the device of a
    /// port, as in "COM3=/dev/ttyUSB0"; a port without a row is /dev/ttyS and its number less one
    explicit Comm(QString mappingFile);
    ~Comm() override;

    bool PortOpen() const { return m_line != nullptr; }
    /// Fails with `InvalidCall` where the port does not exist, is held by another process, or is
    /// open already. A closed port is closed again without failing; what waited unread is lost.
    void SetPortOpen(bool open);

    /// 1 is COM1.
    int CommPort() const { return m_commPort; }
    /// Fails with `InvalidCall` while the port is open. Any number is taken: one that no port has
    /// fails when it is opened.
    void SetCommPort(int number);

    /// The settings in force, such as "9600,n,8,1".
    QString Settings() const { return SerialSettingsText(m_settings); }
    /// Fails with `InvalidCall` where the text is no settings, or an open port refuses them; those
    /// in force stay. What a shut port refuses comes out when it is opened: it then opens with
    /// those it had before.
    void SetSettings(const QString& text);
    /// Fails like the settings, for a number outside 0 to 2.
    void SetHandshaking(std::int16_t number);

    /// All that waits, as characters of the code page; nothing where nothing waits.
    QString Input();

    /// Has devices opened by another maker.
    void SetLineMaker(SerialLineMaker maker) { m_maker = std::move(maker); }

Q_SIGNALS:
    /// Something happened on the port: characters came, or its device is gone. Does not come again
    /// while its own handler runs; what happens meanwhile is told once that is done.
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
    /// What a port took last.
    SerialSettings m_takenSettings;
    FlowControl m_takenFlow = FlowControl::None;
    /// The last bytes of a device that is gone.
    QByteArray m_lastBytes;
    bool m_inHandler = false;
    bool m_eventWaits = false;
};

} // namespace vantrel
