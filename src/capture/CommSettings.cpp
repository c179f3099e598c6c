#include "capture/CommSettings.h"
#include "app/Session.h"
#include "platform/Convert.h"
#include "platform/Skip.h"
#include <QStringList>
#include <algorithm>

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

/// @return the row whose code is that text, or -1
template <typename Table>
int RowOf(const Table& table, const QString& code)
{
    const auto row = std::find_if(table.begin(), table.end(), [&](const auto& choice) {
        return code == QLatin1StringView(CodeOf(choice));
    });
    return row == table.end() ? -1 : static_cast<int>(row - table.begin());
}

template <typename Table>
QString CodeAt(const Table& table, int row)
{
    return row < 0 ? QString() : QString::fromLatin1(CodeOf(table[static_cast<std::size_t>(row)]));
}

} // namespace

CommBoxes ReadCommBoxes(const Session& session)
{
    const StationSettings& settings = session.Settings;
    CommBoxes boxes;
    boxes.Port = QString::number(settings.Port);
    ShowSettingsText(boxes, session.Comm.Settings());
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
    boxes.Speed = RowOf(CommSpeeds, parts[0]);
    boxes.Parity = RowOf(CommParities, parts[1]);
    boxes.DataBits = RowOf(CommDataBits, parts[2]);
    boxes.StopBits = RowOf(CommStopBits, parts[3]);
}

QString GetCommSettings(const CommBoxes& boxes)
{
    const QStringList parts{CodeAt(CommSpeeds, boxes.Speed), CodeAt(CommParities, boxes.Parity),
                            CodeAt(CommDataBits, boxes.DataBits),
                            CodeAt(CommStopBits, boxes.StopBits)};
    return parts.join(QLatin1Char(','));
}

QString PortOfDevice(const Session& session, CommDevice device)
{
    return device == CommDevice::JetDirect ? QString(JetDirectPort)
                                           : QString::number(session.Sock.LocalPort());
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
