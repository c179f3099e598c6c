#pragma once

namespace vantrel {

class SockArray;
class Session;

/// Connects the signals of the session's sockets to the processing of records. Called once at the
/// start.
void ConnectSockets(Session& session);

/// @return the lowest closed element from 1 on, or one above the highest
int FindFreeSocket(const SockArray& sock);

/// Moves an open listener to another port, 1 to 65535. @return false, with no effect, if it is
/// closed
bool SetPort(Session& session, int port);

} // namespace vantrel
