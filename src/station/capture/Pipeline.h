#pragma once

#include <QString>

namespace vantrel {

class Session;

/// The road of one record: frames `text`, pours its values into the open layout and prints the card
/// if the layout asks for it. A failing step is passed over; the input buffer is empty afterwards.
/// Lets pending events run.
/// @param text  by value: mostly it is the input buffer's own, which a close may empty meanwhile
void ProcessStream(Session& session, QString text);

/// Where characters came from; tells the wording of the last-arrival panel.
struct ArrivalSource
{
    /// The panel's text, such as "Got Data (TCP/IP)".
    QString Panel;
    /// What stands in the brackets of its tooltip: a host's address, or a COM port.
    QString From;
};

/// What every port does with new characters: appends them to the input buffer and, if a record is
/// complete, processes it, keeps it if records are kept, runs the active macro and tells the panel.
void TakeArrival(Session& session, const QString& characters, const ArrivalSource& source);

} // namespace vantrel
