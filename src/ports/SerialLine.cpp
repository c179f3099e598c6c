#include "ports/SerialLine.h"
#include "base/Failure.h"
#include <QSerialPort>

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
    explicit DeviceLine(const QString& device)
    {
        m_port.setPortName(device);
        if (!m_port.open(QIODevice::ReadOnly))
            throw Failure(FailureNumber::InvalidCall, m_port.errorString());
        connect(&m_port, &QSerialPort::readyRead, this, &SerialLine::Arrived);
        connect(&m_port, &QSerialPort::errorOccurred, this, &DeviceLine::OnError);
    }

    bool Apply(const SerialSettings& settings) override { return SetLineValues(m_port, settings); }
    bool Apply(FlowControl flow) override { return m_port.setFlowControl(FlowOf(flow)); }
    bool HasBytes() const override { return m_port.bytesAvailable() > 0; }
    QByteArray TakeBytes() override { return m_port.readAll(); }
    void Close() override
    {
        m_port.disconnect(this);
        m_port.close();
    }

private:
    void OnError(QSerialPort::SerialPortError error)
    {
        // A refused value is reported by the call that sets it.
        if (error != QSerialPort::NoError && error != QSerialPort::UnsupportedOperationError)
            Q_EMIT Gone();
    }

    QSerialPort m_port;
};

} // namespace

std::unique_ptr<SerialLine> OpenSerialLine(const QString& device)
{
    return std::make_unique<DeviceLine>(device);
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
