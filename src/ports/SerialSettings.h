#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

/// Number of stop bits after each character.
enum class StopBits { One, OneAndHalf, Two };

/// The four values of a serial settings text such as "9600,n,8,1".
struct SerialSettings
{
    /// Bits per second, above 0.
    std::int32_t Speed = 9600;
    /// "e" even, "o" odd, "m" mark, "s" space, "n" none.
    char Parity = 'n';
    /// 5 to 8, the numbers that Linux supports.
    std::int32_t DataBits = 8;
    vantrel::StopBits StopBits = StopBits::One;

    bool operator==(const SerialSettings&) const = default;
};

/// Kinds of flow control, by the numbers in the settings file.
enum class FlowControl : std::int16_t { None = 0, XonXoff = 1, Hardware = 2 };

/// Parses a settings text; the parity letter may be a capital. Fails with `InvalidCall` if it does
/// not hold four valid values. Five data bits allow 1 or 1.5 stop bits, more data bits 1 or 2.
SerialSettings ReadSerialSettings(const QString& text);

/// The four values joined by commas, with a small parity letter.
QString SerialSettingsText(const SerialSettings& settings);

/// Converts a stored number. Fails with `InvalidCall` outside 0 to 2.
FlowControl ReadFlowControl(std::int16_t number);

} // namespace vantrel
