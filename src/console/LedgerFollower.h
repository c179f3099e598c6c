#pragma once

#include "ledger/LedgerRecent.h"
#include "store/StoreDatabase.h"
#include <QByteArray>
#include <QHash>
#include <QString>

namespace vantrel::console {

class ConsoleStore;

/// Follows the ledger for all who look at the console at once: what came, what became of it, and
/// which stations run. Used in the thread of the store.
class LedgerFollower
{
public:
    /// Looks what has changed since the last look. What was there at the first look is no news.
    /// @return the events to send, empty if there is no news. Never fails: that the store is away
    /// is an event too
    QByteArray Look(ConsoleStore& store);

private:
    void LookAtLedger(ConsoleStore& store, QByteArray& news);
    void Begin(ConsoleStore& store);
    QByteArray TroubleNews(const StoreDatabase& database);
    QByteArray RecordNews(ConsoleStore& store);
    QByteArray StationNews(ConsoleStore& store);

    bool m_begun = false;
    StoreDatabase::State m_state;
    /// The newest entries as they were told, by their numbers.
    QHash<qlonglong, LedgerProgress> m_told;
    qlonglong m_newest = 0;
    QByteArray m_stations;
    QString m_trouble;
};

/// An event as its readers get it.
/// @param data  one line
QByteArray EventText(const QByteArray& name, const QByteArray& data);

} // namespace vantrel::console
