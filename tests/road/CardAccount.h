#pragma once

#include "ledger/LedgerRows.h"
#include "road/BurstHost.h"
#include <QString>
#include <map>
#include <vector>

namespace vantrel::test {

/// The account of a folder whose stations have ended: entries of the ledger, files of cards, and
/// what hosts have sent and were answered. The layout shows two values and one number.
class CardAccount
{
public:
    /// Reads the ledger and the names of the files.
    /// @param sessions  the sessions that printed have the numbers 1 to this one
    CardAccount(const QString& programFolder, int sessions);

    /// Every entry has ended, and no number is on two cards.
    void ExpectEnded() const;
    /// Every number from the first on is on one card of the ledger, also one that is void.
    void ExpectNoNumberMissing(qlonglong first) const;
    /// Every record of a host has an entry, and at most one for each time it was sent.
    void ExpectRecordsOf(const BurstHost& host) const;
    /// Every record of a host that sent each once is printed once at most, and it is if its host
    /// was told so.
    void ExpectEachPrintedOnce(const BurstHost& host) const;
    /// Every answer names the entry of its record, whose card is a whole file with its value and
    /// number.
    void ExpectAnswersOf(const BurstHost& host) const;
    /// As before, where some records may have been refused since the store was held by others for
    /// too long: these have no card. A card whose outcome could not be written is
    /// doubtful.
    void ExpectAnswersOrRefusalsOf(const BurstHost& host) const;
    /// Every printed card that is no job has a whole file of its own, every other file is the card
    /// of a doubtful entry, and no number is on two files. Reads all files that are no printed
    /// card's, and at most so many of the others.
    void ExpectFiles(std::size_t atMostRead) const;

    /// Of a host that sent each record once: every entry has ended, every number is on one card,
    /// every record is printed once at most, and every file is a card's. Tells the summary.
    void ExpectNothingLost(const BurstHost& host, qlonglong firstNumber,
                           std::size_t atMostRead) const;

    /// How many entries are in each state, for people.
    QString Summary() const;
    std::size_t Count(LedgerState state) const;
    const std::map<qlonglong, LedgerEntry>& Entries() const { return m_entries; }

private:
    QString FolderOf(int session) const;
    void ExpectTextOf(const QString& path, const LedgerEntry& entry, const LedgerCard& card) const;
    void ExpectDoubtful(const QString& path) const;

    QString m_printed;
    int m_sessions;
    std::map<qlonglong, LedgerEntry> m_entries;
};

} // namespace vantrel::test
