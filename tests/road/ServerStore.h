#pragma once

#include <QString>

namespace vantrel::test {

/// Takes the layouts of a station along to a store on a server, which that station then uses.
/// @param store    the address of an empty database
/// @param station  the address by which the station reaches it
void PutStoreOnServer(const QString& programFolder, const QString& store, const QString& station);

/// Lets stations write what they could not write when it came. @return whether every entry of the
/// ledger has then ended
bool ComesToRest(const QString& store);

} // namespace vantrel::test
