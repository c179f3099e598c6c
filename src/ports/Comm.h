#pragma once

#include "base/InputText.h"
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

    /// Sets how received bytes are read as characters, from the next opening on.
    void SetEncoding(InputEncoding encoding) { m_encoding = encoding; }
    /// Sets whether the port also sends, from the next opening on.
    void SetAnswers(bool on) { m_use = on ? LineUse::ReceiveAndSend : LineUse::Receive; }
    /// Limits how many bytes are read ahead if the port has flow control, from the next opening on;
    /// 0 for no limit. Received bytes may then be left until `Resume` is called.
    void SetReadAhead(qint64 bytes) { m_readAhead = bytes; }
    /// Whether flow control can make the sender wait.
    bool HasFlowControl() const { return m_flow != FlowControl::None; }
    /// Signals again what was received and left.
    void Resume();

    /// The number of bytes that may wait to be sent.
    static constexpr qint64 OutputLimit = qint64{64} << 10;
    /// Counts the openings, so that an answer never goes to another device than its record came
    /// from.
    int Opening() const { return m_opening; }
    /// Sends bytes without waiting. @return false, with no effect, if the port is closed or does
    /// not send, or if too many bytes wait already
    bool Output(const QByteArray& bytes);
    /// Whether `Output` has refused bytes of the open port; each opening tells so once.
    bool TakeRefusalNotice();
    /// Whether so many bytes wait that nothing more should be read.
    bool IsOutputFull() const;

    /// Takes all received characters; empty if there are none.
    QString Input();
    /// Whether a byte has come that is no character; each opening tells so once.
    bool TakeStrayNotice() { return m_decoder.TakeStrayNotice(); }

    /// Replaces the function that opens devices.
    void SetLineMaker(SerialLineMaker maker) { m_maker = std::move(maker); }

Q_SIGNALS:
    /// Emitted when characters arrived or the device was removed. It is not emitted while its own
    /// handler runs; events in the meantime are signalled once after the handler returns.
    void OnComm();
    /// Bytes were sent.
    void OutputSent();
    /// The port is about to be closed, or its device was removed; what it has received can still be
    /// taken.
    void Closing();

private:
    QString DevicePath() const;
    void Adjust();
    void LimitReadAhead();
    void Close();
    void CloseLine();
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
    LineUse m_use = LineUse::Receive;
    qint64 m_readAhead = 0;
    int m_opening = 0;
    bool m_hasRefused = false;
    bool m_refusalTold = false;
    InputEncoding m_encoding = InputEncoding::CodePage1252;
    InputDecoder m_decoder;
    /// The last bytes of a removed device.
    QByteArray m_lastBytes;
    bool m_inHandler = false;
    bool m_eventWaits = false;
    bool m_taken = false;
};

} // namespace vantrel
