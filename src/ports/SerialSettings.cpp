#include "ports/SerialSettings.h"
#include "base/Failure.h"
#include <QStringList>

namespace vantrel {

namespace {

struct StopBitsText
{
    StopBits Value;
    const char* Text;
};

constexpr StopBitsText StopBitsTexts[] = {
    {StopBits::One, "1"}, {StopBits::OneAndHalf, "1.5"}, {StopBits::Two, "2"}};
constexpr QLatin1StringView ParityLetters{"eomsn"};
constexpr qsizetype PartCount = 4;
constexpr std::int32_t FewestDataBits = 5;
constexpr std::int32_t MostDataBits = 8;

[[noreturn]] void Refuse()
{
    throw Failure(FailureNumber::InvalidCall, QStringLiteral("Invalid serial port settings"));
}

void Require(bool holds)
{
    if (!holds)
        Refuse();
}

std::int32_t WholeNumber(const QString& text)
{
    bool ok = false;
    const std::int32_t number = text.toInt(&ok);
    Require(ok);
    return number;
}

StopBits ReadStopBits(const QString& text)
{
    for (const StopBitsText& row : StopBitsTexts) {
        if (text == QLatin1StringView(row.Text))
            return row.Value;
    }
    Refuse();
}

} // namespace

SerialSettings ReadSerialSettings(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    Require(parts.size() == PartCount);
    SerialSettings settings;
    settings.Speed = WholeNumber(parts[0].trimmed());
    Require(settings.Speed > 0);

    const QString parity = parts[1].trimmed().toLower();
    Require(parity.size() == 1 && ParityLetters.contains(parity.front()));
    settings.Parity = parity.front().toLatin1();

    settings.DataBits = WholeNumber(parts[2].trimmed());
    Require(settings.DataBits >= FewestDataBits && settings.DataBits <= MostDataBits);

    settings.StopBits = ReadStopBits(parts[3].trimmed());
    // The longer stop of the hardware is 1.5 bits with five data bits and 2 bits otherwise.
    const StopBits longer =
        settings.DataBits == FewestDataBits ? StopBits::OneAndHalf : StopBits::Two;
    Require(settings.StopBits == StopBits::One || settings.StopBits == longer);
    return settings;
}

QString SerialSettingsText(const SerialSettings& settings)
{
    return QStringLiteral("%1,%2,%3,%4")
        .arg(settings.Speed)
        .arg(QLatin1Char(settings.Parity))
        .arg(settings.DataBits)
        .arg(QLatin1StringView(StopBitsTexts[static_cast<std::size_t>(settings.StopBits)].Text));
}

FlowControl ReadFlowControl(std::int16_t number)
{
    const auto flow = static_cast<FlowControl>(number);
    Require(flow == FlowControl::None || flow == FlowControl::XonXoff ||
            flow == FlowControl::Hardware);
    return flow;
}

} // namespace vantrel
