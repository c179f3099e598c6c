#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace vantrel {

class StoreDatabase;

/// @file Entries that were left to a pool, and wait until a station of it carries them out. A
/// station claims an entry by writing its session number into it; from then on the entry is that
/// session's like any other. All of these fail like `StoreDatabase`.

/// A station that carries out entries of a pool.
struct PoolMember
{
    QString Pool;
    int Session = 1;
    /// The printers that it has.
    QStringList Printers;
};

/// Takes the oldest entry that a member can carry out: one of its own session, or one that waits in
/// its pool and needs no other printers than it has. Those are the printers of all pages of the
/// entry's layout, and those of the cards that it prints again. Durable, in one round trip to a
/// server; members that ask at the same moment get different entries and do not wait for each
/// other.
/// @param underWay  entries of this session that are not to be found
/// @return the number of the entry; nothing if there is none
std::optional<qlonglong> ClaimEntry(StoreDatabase& database, const PoolMember& member,
                                    const std::vector<qlonglong>& underWay);

/// Gives back to a pool what stations have claimed that ended or have been silent for too long:
/// entries that they had not begun wait again, those that they were printing are doubtful, and so
/// are their cards.
/// @param now  the present time in milliseconds since 1970, UTC
/// @return the number of entries that wait again or are doubtful
int ReleaseAbandoned(StoreDatabase& database, const QString& pool, qint64 now);

} // namespace vantrel
