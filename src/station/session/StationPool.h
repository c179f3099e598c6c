#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

/// What a station does with the records of its pool.
enum class PoolWork {
    /// Takes records from hosts and leaves their cards to others.
    Take,
    /// Prints cards and opens no port to hosts.
    Print,
    /// Takes records, and prints those of the whole pool.
    Both,
};

/// The pool that the sessions of a program folder belong to: stations that share the records which
/// their hosts send. Read from the keys `Pool` and `Work` of the section "Store".
struct StationPool
{
    /// Empty if they belong to none.
    QString Name;
    PoolWork Work = PoolWork::Both;

    bool Takes() const { return !Name.isEmpty() && Work != PoolWork::Print; }
    bool Prints() const { return !Name.isEmpty() && Work != PoolWork::Take; }
    /// Whether the station opens no port to hosts.
    bool TakesNothing() const { return !Name.isEmpty() && Work == PoolWork::Print; }
};

/// Reads the pool from "Vantrel 6.ini" in the program folder. A bad value counts as missing.
/// @param mistakes  receives one line for each bad value, which names key and value
StationPool ReadStationPool(const QString& programFolder, QStringList& mistakes);

} // namespace vantrel
