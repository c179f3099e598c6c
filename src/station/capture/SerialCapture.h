#pragma once

namespace vantrel {

struct StationSettings;
class Comm;
class Session;

/// Connects the session's serial port to the road of records. Called once, when the station starts.
/// Serial and TCP/IP characters go to the one input buffer.
void ConnectComm(Session& session);

/// Gives the serial port its number and its settings without opening it.
void PrepareComm(Comm& comm, const StationSettings& settings);

/// Closes the serial port and, if serial capture is in use, leaves it open or shut, and in use or
/// not, as told.
void SerialMode(Comm& comm, StationSettings& settings, bool open);

/// Opens the serial port, whether serial capture is in use or not.
void SerialListen(Comm& comm);

} // namespace vantrel
