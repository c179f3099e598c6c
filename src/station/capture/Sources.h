#pragma once

#include "station/capture/Pipeline.h"

namespace vantrel {

/// The source of what a connection sends, with its way back if the session answers.
ArrivalSource SourceOfHost(Session& session, int index);

/// The source of what the serial port sends, with its way back if the session answers.
ArrivalSource SourceOfSerial(Session& session);

/// Takes all characters of a connection and warns of its first byte that is none.
QString TakeCharacters(Session& session, int index, const QString& peer);

/// Takes all characters of the serial port and warns of its first byte that is none.
QString TakeSerialCharacters(Session& session);

} // namespace vantrel
