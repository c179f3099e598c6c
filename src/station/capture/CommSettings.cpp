#include "station/capture/CommSettings.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "station/session/Session.h"
#include <QStringList>
#include <algorithm>
#include <span>

namespace vantrel {

namespace {

constexpr QLatin1StringView JetDirectPort("9100");
constexpr qsizetype SettingsParts = 4;

const char* CodeOf(const char* row)
{
    return row;
}

const char* CodeOf(const CommChoice& row)
{
    return row.Code;
}

/// Tables of one kind of row, whatever their length.
using Codes = std::span<const char* const>;
using Choices = std::span<const CommChoice>;

/// @return the index of the row with that code, or -1
template <typename Rows>
int RowOf(Rows rows, const QString& code)
{
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& choice) {
        return code == QLatin1StringView(CodeOf(choice));
    });
    return row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
}

template <typename Rows>
QString CodeAt(Rows rows, int row)
{
    return row < 0 ? QString() : QString::fromLatin1(CodeOf(rows[static_cast<std::size_t>(row)]));
}

} // namespace

CommBoxes ReadCommBoxes(const StationSettings& settings, const Comm& comm)
{
    CommBoxes boxes;
    boxes.Port = QString::number(settings.Port);
    ShowSettingsText(boxes, comm.Settings());
    for (std::size_t row = 0; row < CommFlows.size(); ++row) {
        if (CommFlows[row].Value != settings.SFlowCtrl)
            continue;
        boxes.Flow = static_cast<int>(row);
        boxes.SelectedFlowControl = settings.SFlowCtrl;
    }
    boxes.SelectedSerialPort = settings.SPort;
    return boxes;
}

void ShowSettingsText(CommBoxes& boxes, const QString& text)
{
    QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != SettingsParts)
        parts = QStringList(SettingsParts, QString());
    boxes.Speed = RowOf(Codes(CommSpeeds), parts[0]);
    boxes.Parity = RowOf(Choices(CommParities), parts[1]);
    boxes.DataBits = RowOf(Choices(CommDataBits), parts[2]);
    boxes.StopBits = RowOf(Choices(CommStopBits), parts[3]);
}

QString GetCommSettings(const CommBoxes& boxes)
{
    const QStringList parts{CodeAt(Codes(CommSpeeds), boxes.Speed),
                            CodeAt(Choices(CommParities), boxes.Parity),
                            CodeAt(Choices(CommDataBits), boxes.DataBits),
                            CodeAt(Choices(CommStopBits), boxes.StopBits)};
    return parts.join(QLatin1Char(','));
}

QString PortOfDevice(const SockArray& sock, CommDevice device)
{
    return device == CommDevice::JetDirect ? QString(JetDirectPort)
                                           : QString::number(sock.LocalPort());
}

void UseFeature(Session& session, const CommFeature& feature, bool on)
{
    session.Settings.*feature.Flag = on;
    SwitchPorts(session, feature.Mode);
    SaveSetting(session, feature.Key, BooleanText(on));
}

void SaveCommBoxes(Session& session, const CommBoxes& boxes)
{
    StationSettings& settings = session.Settings;
    SaveSetting(session, SettingNumber::Port, boxes.Port);
    // An invalid number must not open a port, as after the next start.
    settings.Port = 0;
    Skip("port number", [&] { settings.Port = ToLong(boxes.Port); });
    settings.SPort = static_cast<std::uint8_t>(boxes.SelectedSerialPort);
    settings.SSettings = GetCommSettings(boxes);
    settings.SFlowCtrl = boxes.SelectedFlowControl;
    SaveSetting(session, SettingNumber::SPort, QString::number(settings.SPort));
    SaveSetting(session, SettingNumber::SSettings, settings.SSettings);
    SaveSetting(session, SettingNumber::SFlowCtrl, QString::number(settings.SFlowCtrl));
    SwitchPorts(session, SwitchMode::All);
}

} // namespace vantrel
