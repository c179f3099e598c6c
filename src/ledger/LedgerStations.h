#pragma once

#include <QString>
#include <vector>

namespace vantrel {

class StoreDatabase;

/// What a station says of itself now and then, so that others see whether it runs. Times are
/// milliseconds since 1970, UTC.
struct LedgerStation
{
    /// The host name of its machine; in a store on a server a colon and its program folder follow.
    QString Machine;
    int Session = 1;
    qint64 Started = 0;
    /// When it said so last.
    qint64 Seen = 0;
    /// Whether it has ended in order since.
    bool Ended = false;
    /// The open layout and the printer of its cards; empty for none.
    QString Layout;
    QString Printer;
};

/// How often a running station says so, in milliseconds.
inline constexpr int HeartbeatMilliseconds = 10'000;
/// A station that has not said so for this long does not run, in milliseconds.
inline constexpr int SilentMilliseconds = 30'000;

/// Writes what a station says of itself. Fails like `StoreDatabase`.
void NoteStation(StoreDatabase& database, const LedgerStation& station);

/// Does the same when a station begins, unless another one runs with its session number, and would
/// carry out its entries. Fails like `StoreDatabase`.
/// @return the name of the other one's machine; empty if there is none
QString ClaimSession(StoreDatabase& database, const LedgerStation& station);

/// The stations of a ledger, by machine and session. A ledger that no station has opened since this
/// table came has none. Fails like `StoreDatabase`.
std::vector<LedgerStation> ReadStations(StoreDatabase& database);

} // namespace vantrel
