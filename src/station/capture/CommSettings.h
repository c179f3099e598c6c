#pragma once

#include "station/capture/Ports.h"
#include "station/session/Settings.h"
#include <QString>
#include <array>
#include <cstdint>

namespace vantrel {

class SockArray;
class Comm;
class Session;

/// @file The choices of the communication settings dialog and their effects, independent of its
/// window.

/// The devices that hosts can send to. They differ only in the TCP port.
enum class CommDevice { JetDirect = 0, Custom = 1 };
inline constexpr std::array CommDevices{"HP JetDirect Device", "Custom Port Settings"};

/// "COM1" to "COM16".
inline constexpr int CommPortCount = 16;

inline constexpr std::array CommSpeeds{"300",   "600",   "1200",   "1800",  "2400",
                                       "4800",  "7200",  "9600",   "14400", "19200",
                                       "38400", "57600", "115200", "128000"};

/// A caption in a list and its part of the settings text.
struct CommChoice
{
    const char* Caption;
    const char* Code;
};
inline constexpr std::array CommParities{CommChoice{"Even", "e"}, CommChoice{"Odd", "o"},
                                         CommChoice{"None", "n"}, CommChoice{"Mark", "m"},
                                         CommChoice{"Space", "s"}};
inline constexpr std::array CommDataBits{CommChoice{"4 Bits", "4"}, CommChoice{"5 Bits", "5"},
                                         CommChoice{"6 Bits", "6"}, CommChoice{"7 Bits", "7"},
                                         CommChoice{"8 Bits", "8"}};
inline constexpr std::array CommStopBits{CommChoice{"1", "1"}, CommChoice{"1.5", "1.5"},
                                         CommChoice{"2", "2"}};

/// A kind of flow control and its number in the settings file.
struct CommFlow
{
    const char* Caption;
    std::int16_t Value;
};
inline constexpr std::array CommFlows{CommFlow{"None", 0}, CommFlow{"Hardware", 2},
                                      CommFlow{"Xon / Xoff", 1}};

/// One of the three inputs of the station: its flag, the ports it switches, and its key.
struct CommFeature
{
    bool StationSettings::*Flag;
    SwitchMode Mode;
    SettingNumber Key;
};
inline constexpr CommFeature NetworkFeature{&StationSettings::UseIP, SwitchMode::Network,
                                            SettingNumber::UseIP};
inline constexpr CommFeature ParallelFeature{&StationSettings::UseParallel, SwitchMode::Parallel,
                                             SettingNumber::UseParallel};
inline constexpr CommFeature SerialFeature{&StationSettings::UseSerial, SwitchMode::Serial,
                                           SettingNumber::UseSerial};

/// The values in the dialog. Indexes refer to the tables above; -1 means no choice.
struct CommBoxes
{
    QString Port;
    int Speed = -1;
    int Parity = -1;
    int DataBits = -1;
    int StopBits = -1;
    int Flow = -1;
    /// Number of the COM port, 1 to 16; other values select no row.
    std::int16_t SelectedSerialPort = 0;
    std::int16_t SelectedFlowControl = 0;
};

/// The values with which the dialog opens: TCP/IP port and flow control as stored, the other serial
/// settings as in force.
CommBoxes ReadCommBoxes(const StationSettings& settings, const Comm& comm);

/// Selects the four parts of a settings text; a part that is not in its list selects nothing. A
/// text that does not have four parts clears all four.
void ShowSettingsText(CommBoxes& boxes, const QString& text);

/// The settings text of the selected values; a part without a choice is empty.
QString GetCommSettings(const CommBoxes& boxes);

/// The text of the port box after a device was selected.
QString PortOfDevice(const SockArray& sock, CommDevice device);

/// Turns an input on or off at once: sets its flag, switches its ports and stores the setting.
/// Never fails.
void UseFeature(Session& session, const CommFeature& feature, bool on);

/// Stores the values and reopens all ports, which closes connections. The values are not checked:
/// an invalid TCP/IP port is stored unchanged, and then no port is opened.
void SaveCommBoxes(Session& session, const CommBoxes& boxes);

} // namespace vantrel
