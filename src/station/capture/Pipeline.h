#pragma once

#include <QString>
#include <functional>

namespace vantrel {

class RecordPage;
class Session;

/// Processes one record: frames `text`, fills its values into the open layout, on the surface or
/// behind it, and prints the card if the layout prints automatically. A failing step is skipped;
/// the input buffer is empty afterwards. Runs pending events.
/// @param text  a copy, because a closed connection may empty the input buffer in the meantime
void ProcessStream(Session& session, QString text);
/// Likewise for a record that prints on another layout.
void ProcessStream(Session& session, QString text, const RecordPage& record);

/// Prints a record whose values are known, such as one that was received before the station was
/// killed, and runs the active macro.
/// @param text  the record as it came, for the raw view
/// @param record  the page that it prints on
void TakeValues(Session& session, const QString& text, const QStringList& values,
                const RecordPage& record);

/// The source of characters, as shown in the last-arrival panel.
struct ArrivalSource
{
    /// The panel's text, such as "Got Data (TCP/IP)".
    QString Panel;
    /// The text in brackets in its tooltip: a host's address, or a COM port.
    QString From;
    /// What the ledger names: a host's address and port, such as "192.168.7.10:51234", or a COM
    /// port.
    QString Peer = {};
    /// Sends one line back to where the record came from, without its line end; empty if nothing is
    /// answered. May be called after the host is gone, and then does nothing.
    std::function<void(const QString& line)> Answer = {};
};

/// Takes one complete record: processes it, buffers it if that is set, runs the active macro and
/// updates the panel. A station that takes records for a pool leaves the card to it, and runs no
/// macro.
/// @param text  the record with its delimiters, and whatever else counts to it
/// @return false if the record must not be taken, because the ledger must be kept and cannot be
/// written; it is to be offered again later
bool TakeRecord(Session& session, QString text, const ArrivalSource& source);

/// Handles new characters of any port: appends them to the input buffer and, if a record is
/// complete, takes it.
void TakeArrival(Session& session, const QString& characters, const ArrivalSource& source);

} // namespace vantrel
