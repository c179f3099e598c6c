#pragma once

#include "ports/SerialSettings.h"
#include <QObject>
#include <functional>
#include <memory>

class QSerialPort;

namespace vantrel {

/// Whether a device only receives or also sends.
enum class LineUse { Receive, ReceiveAndSend };

/// One open serial device.
class SerialLine : public QObject
{
    Q_OBJECT

public:
    /// Applies settings. @return false if the device refuses one of the values; it may then have
    /// accepted some of the others
    virtual bool Apply(const SerialSettings& settings) = 0;
    virtual bool Apply(FlowControl flow) = 0;
    /// Whether received bytes are waiting.
    virtual bool HasBytes() const = 0;
    /// Takes all received bytes.
    virtual QByteArray TakeBytes() = 0;
    /// Limits how many received bytes it reads ahead, so that flow control stops the sender; 0 for
    /// no limit.
    virtual void LimitReadAhead(qint64 bytes) = 0;
    /// Sends bytes without waiting, if the line was opened for that.
    virtual void Send(const QByteArray& bytes) = 0;
    /// The number of bytes that wait to be sent.
    virtual qint64 Unsent() const = 0;
    /// Closes the device. No signal is emitted after that.
    virtual void Close() = 0;

Q_SIGNALS:
    /// Bytes have arrived.
    void Arrived();
    /// Bytes were sent.
    void Sent();
    /// The device was removed, such as an unplugged adapter. It is emitted repeatedly until the
    /// line is closed, so the handler must close it.
    void Gone();
};

/// Opens a device. Fails with `InvalidCall` if it does not exist or another process has it open.
using SerialLineMaker =
    std::function<std::unique_ptr<SerialLine>(const QString& device, LineUse use)>;

/// Opens a device of this machine, such as "/dev/ttyS0". Fails like `SerialLineMaker`.
std::unique_ptr<SerialLine> OpenSerialLine(const QString& device, LineUse use);

/// Applies settings to an open or closed port. @return false at the first value that it refuses
bool SetLineValues(QSerialPort& port, const SerialSettings& settings);

} // namespace vantrel
