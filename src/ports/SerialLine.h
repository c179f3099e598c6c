#pragma once

#include "ports/SerialSettings.h"
#include <QObject>
#include <functional>
#include <memory>

class QSerialPort;

namespace vantrel {

/// One serial device, open as long as the object lives. It carries bytes one way: to the station.
class SerialLine : public QObject
{
    Q_OBJECT

public:
    /// @return false where the device refuses one of the values; what it then has of them is open
    virtual bool Apply(const SerialSettings& settings) = 0;
    virtual bool Apply(FlowControl flow) = 0;
    /// Whether bytes wait that `TakeBytes` would return.
    virtual bool HasBytes() const = 0;
    /// All bytes that wait.
    virtual QByteArray TakeBytes() = 0;
    /// Lets go of the device. Nothing is told from then on.
    virtual void Close() = 0;

Q_SIGNALS:
    /// Bytes have come.
    void Arrived();
    /// The device is gone, as an adapter that was pulled out. Told until the line is closed, and
    /// then without end: close it at once.
    void Gone();
};

/// Opens a device. Fails with `InvalidCall` where there is none or somebody else holds it.
using SerialLineMaker = std::function<std::unique_ptr<SerialLine>(const QString& device)>;

/// The maker for devices of this machine, such as "/dev/ttyS0".
std::unique_ptr<SerialLine> OpenSerialLine(const QString& device);

/// Gives the values to a port, open or not. @return false at the first one it refuses
bool SetLineValues(QSerialPort& port, const SerialSettings& settings);

} // namespace vantrel
