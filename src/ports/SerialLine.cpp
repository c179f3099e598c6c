#include "ports/SerialLine.h"
#include "base/Failure.h"
#include <QSerialPort>
#include <QSocketNotifier>
#include <QThread>
#include <optional>
#include <sys/ioctl.h>
#include <termios.h>

namespace vantrel {

namespace {

QSerialPort::Parity ParityOf(char letter)
{
    switch (letter) {
    case 'e':
        return QSerialPort::EvenParity;
    case 'o':
        return QSerialPort::OddParity;
    case 'm':
        return QSerialPort::MarkParity;
    case 's':
        return QSerialPort::SpaceParity;
    default:
        return QSerialPort::NoParity;
    }
}

QSerialPort::FlowControl FlowOf(FlowControl flow)
{
    switch (flow) {
    case FlowControl::XonXoff:
        return QSerialPort::SoftwareControl;
    case FlowControl::Hardware:
        return QSerialPort::HardwareControl;
    case FlowControl::None:
        break;
    }
    return QSerialPort::NoFlowControl;
}

class DeviceLine : public SerialLine
{
    Q_OBJECT

public:
    DeviceLine(const QString& device, LineUse use)
    {
        m_port.setPortName(device);
        if (!m_port.open(use == LineUse::Receive ? QIODevice::ReadOnly : QIODevice::ReadWrite))
            throw Failure(FailureNumber::InvalidCall, m_port.errorString());
        connect(&m_port, &QSerialPort::readyRead, this, &SerialLine::Arrived);
        connect(&m_port, &QSerialPort::bytesWritten, this, &SerialLine::Sent);
        connect(&m_port, &QSerialPort::errorOccurred, this, &DeviceLine::OnError);
        m_hangUp.emplace(m_port.handle(), QSocketNotifier::Exception);
        connect(&*m_hangUp, &QSocketNotifier::activated, this, &SerialLine::Gone);
    }

    bool Apply(const SerialSettings& settings) override { return SetLineValues(m_port, settings); }
    bool Apply(FlowControl flow) override { return m_port.setFlowControl(FlowOf(flow)); }
    bool HasBytes() const override { return m_port.bytesAvailable() > 0; }
    QByteArray TakeBytes() override { return m_port.readAll(); }
    void LimitReadAhead(qint64 bytes) override { m_port.setReadBufferSize(bytes); }
    void Send(const QByteArray& bytes) override { m_port.write(bytes); }
    qint64 Unsent() const override { return m_port.bytesToWrite(); }
    void Close() override
    {
        m_hangUp->setEnabled(false);
        m_port.disconnect(this);
        if (m_port.isWritable())
            DropWhatIsHeldBack();
        m_port.close();
    }

private:
    // The system waits for half a minute at the close of a device that flow control holds back.
    void DropWhatIsHeldBack()
    {
        constexpr int attempts = 20;
        constexpr unsigned long attemptMs = 10;
        int waiting = 0;
        for (int attempt = 0; attempt < attempts; ++attempt) {
            if (::ioctl(m_port.handle(), TIOCOUTQ, &waiting) != 0 || waiting == 0)
                return;
            QThread::msleep(attemptMs);
        }
        ::tcflush(m_port.handle(), TCOFLUSH);
    }
    void OnError(QSerialPort::SerialPortError error)
    {
        // A refused value is reported by the call that sets it.
        if (error != QSerialPort::NoError && error != QSerialPort::UnsupportedOperationError)
            Q_EMIT Gone();
    }

    QSerialPort m_port;
    /// Watches for the removal of the device. Some releases of Qt report no error then: they read
    /// nothing, as fast as they can.
    std::optional<QSocketNotifier> m_hangUp;
};

} // namespace

std::unique_ptr<SerialLine> OpenSerialLine(const QString& device, LineUse use)
{
    return std::make_unique<DeviceLine>(device, use);
}

bool SetLineValues(QSerialPort& port, const SerialSettings& settings)
{
    // The hardware has one setting for the longer stop bit; the number of data bits decides whether
    // it is 1.5 or 2.
    const auto stopBits =
        settings.StopBits == StopBits::One ? QSerialPort::OneStop : QSerialPort::TwoStop;
    return port.setBaudRate(settings.Speed) &&
           port.setDataBits(static_cast<QSerialPort::DataBits>(settings.DataBits)) &&
           port.setParity(ParityOf(settings.Parity)) && port.setStopBits(stopBits);
}

} // namespace vantrel

#include "SerialLine.moc"
