#pragma once

namespace vantrel {

class SockArray;
class Session;

/// Connects the session's sockets to the road of records. Called once, when the station starts.
void ConnectSockets(Session& session);

/// @return the lowest element from 1 up that is closed, or one above the highest
int FindFreeSocket(const SockArray& sock);

/// Moves an open listener to another port. @return false, doing nothing, if it is closed
bool SetPort(Session& session, int port);

} // namespace vantrel
