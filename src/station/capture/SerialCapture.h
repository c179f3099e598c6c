#pragma once

namespace vantrel {

struct StationSettings;
class Comm;
class Session;

/// Connects the signals of the session's serial port to the processing of records. Called once at
/// the start. Serial and TCP/IP characters go to the same input buffer.
void ConnectComm(Session& session);

/// Sets the number and the settings of the serial port without opening it. Invalid settings are
/// skipped.
void PrepareComm(Comm& comm, const StationSettings& settings);

/// Closes the serial port. If serial capture is in use, then opens the port again if `open` is
/// true, or takes serial capture out of use if it is false.
void SerialMode(Comm& comm, StationSettings& settings, bool open);

/// Opens the serial port even if serial capture is not in use.
void SerialListen(Comm& comm);

} // namespace vantrel
