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

/// @file What the communication settings dialog offers, and what it does, on data.

/// The devices a station passes for. They are port numbers only.
enum class CommDevice { JetDirect = 0, Custom = 1 };
inline constexpr std::array CommDevices{"HP JetDirect Device", "Custom Port Settings"};

/// "COM1" to "COM16".
inline constexpr int CommPortCount = 16;

inline constexpr std::array CommSpeeds{"300",   "600",   "1200",   "1800",  "2400",
                                       "4800",  "7200",  "9600",   "14400", "19200",
                                       "38400", "57600", "115200", "128000"};

/// A choice and its text in the settings text.
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

/// A kind of flow control and the number it is stored under.
struct CommFlow
{
    const char* Caption;
    std::int16_t Value;
};
inline constexpr std::array CommFlows{CommFlow{"None", 0}, CommFlow{"Hardware", 2},
                                      CommFlow{"Xon / Xoff", 1}};

/// One of the three ways in: its flag, what is switched when it changes, and its key.
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

/// What stands in the boxes of the dialog. An index counts rows of the tables above; -1 is no
/// choice.
struct CommBoxes
{
    QString Port;
    int Speed = -1;
    int Parity = -1;
    int DataBits = -1;
    int StopBits = -1;
    int Flow = -1;
    /// Row of the list of ports plus 1; 0 and what lies above 16 is no row.
    std::int16_t SelectedSerialPort = 0;
    std::int16_t SelectedFlowControl = 0;
};

/// The boxes as the dialog opens: the TCP/IP port and the flow control as stored, the other serial
/// settings as they are in force.
CommBoxes ReadCommBoxes(const StationSettings& settings, const Comm& comm);

/// Chooses the four parts of a settings text in the boxes; one that is not in its list is no
/// choice. A text of another number of parts leaves all four empty.
void ShowSettingsText(CommBoxes& boxes, const QString& text);

/// The settings text of the boxes; a part without a choice is empty.
QString GetCommSettings(const CommBoxes& boxes);

/// What the port box shows once a device was chosen.
QString PortOfDevice(const SockArray& sock, CommDevice device);

/// Takes a way in into use or out of it, at once: sets its flag, switches its ports, stores it.
void UseFeature(Session& session, const CommFeature& feature, bool on);

/// Keeps the boxes and reopens all ports, which cuts connections. Nothing is checked: a TCP/IP port
/// that is no number is stored as it stands and the old one stays in use.
void SaveCommBoxes(Session& session, const CommBoxes& boxes);

} // namespace vantrel
