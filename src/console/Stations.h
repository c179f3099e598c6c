#pragma once

#include "ledger/LedgerStations.h"
#include <QByteArray>
#include <QString>
#include <vector>

namespace vantrel::console {

class ConsoleStore;

enum class StationState {
    Alive,
    /// It should run, and has not said so for some time.
    Silent,
    /// It has ended in order.
    Ended,
    /// It should run, and never said that it does.
    Missing,
};

/// A station as the console shows it.
struct StationSeen
{
    LedgerStation Station;
    StationState State = StationState::Alive;
    /// Whether it should run.
    bool IsWanted = false;
};

/// What is known of stations: what they wrote into the ledger, and which sessions the status file
/// of this folder wants. A session should run if the status file says so, or if it has said that it
/// runs and has not ended in order since.
/// @param noted  from the ledger
/// @param machine  the host name of this machine, whose sessions the status file is about
/// @param now  milliseconds since 1970, UTC
std::vector<StationSeen> JudgeStations(const QString& programFolder,
                                       const std::vector<LedgerStation>& noted,
                                       const QString& machine, qint64 now);

/// The stations of the store now. Fails like `StoreDatabase`.
std::vector<StationSeen> StationsNow(ConsoleStore& store);

/// A station as JSON.
QByteArray StationJson(const StationSeen& seen);

} // namespace vantrel::console
