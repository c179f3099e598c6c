#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Processes one record: frames `text`, fills its values into the open layout and prints the card
/// if the layout prints automatically. A failing step is skipped; the input buffer is empty
/// afterwards. Runs pending events.
/// @param text  a copy, because a closed connection may empty the input buffer in the meantime
void ProcessStream(Session& session, QString text);

/// The source of characters, as shown in the last-arrival panel.
struct ArrivalSource
{
    /// The panel's text, such as "Got Data (TCP/IP)".
    QString Panel;
    /// The text in brackets in its tooltip: a host's address, or a COM port.
    QString From;
};

/// Handles new characters of any port: appends them to the input buffer and, if a record is
/// complete, processes it, buffers it if that is set, runs the active macro and updates the panel.
void TakeArrival(Session& session, const QString& characters, const ArrivalSource& source);

} // namespace vantrel
