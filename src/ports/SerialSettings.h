#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

/// How long the line rests behind each character.
enum class StopBits { One, OneAndHalf, Two };

/// The four values of a serial settings text such as "9600,n,8,1".
struct SerialSettings
{
    /// Bits a second, above 0.
    std::int32_t Speed = 9600;
    /// "e" even, "o" odd, "m" mark, "s" space, "n" none.
    char Parity = 'n';
    /// 5 to 8: no port of this system carries fewer.
    std::int32_t DataBits = 8;
    vantrel::StopBits StopBits = StopBits::One;

    bool operator==(const SerialSettings&) const = default;
};

/// The numbers under which flow control is stored.
enum class FlowControl : std::int16_t { None = 0, XonXoff = 1, Hardware = 2 };

/// Fails with `InvalidCall` where the text does not hold four values that a port can have together:
/// with five data bits there are 1 or 1.5 stop bits, with more 1 or 2. Letters may be capitals.
SerialSettings ReadSerialSettings(const QString& text);

/// The four values joined by commas, the letter small.
QString SerialSettingsText(const SerialSettings& settings);

/// Fails with `InvalidCall` outside 0 to 2.
FlowControl ReadFlowControl(std::int16_t number);

} // namespace vantrel
