#pragma once

#include "ledger/LedgerReading.h"
#include "station/ledger/HistoryEntry.h"
#include <QObject>
#include <QThread>
#include <atomic>
#include <memory>

namespace vantrel {

/// Reads the ledger for a window, with a connection and a thread of its own, so that records go on
/// printing meanwhile. Requests return at once; answers are signals in the thread of this object.
class HistoryReader : public QObject
{
    Q_OBJECT

public:
    HistoryReader(const QString& databasePath, InputEncoding encoding);
    /// Waits for the step in hand.
    ~HistoryReader() override;

    /// Gives up the search before and begins another one. `Found` brings what it finds, newest
    /// first, and `SearchEnded` follows. From then on `Arrived` brings entries that came since.
    void Search(const LedgerFilter& filter);
    /// Reads entries for the list.
    void ReadRows(std::vector<qlonglong> ids);
    void ReadEntry(qlonglong id);
    /// Looks whether the ledger was changed, and if so for entries that came.
    void Look();
    /// Writes the entries of a filter to a CSV file, which appears under its name when it is whole.
    void Export(const LedgerFilter& filter, const QString& path);

Q_SIGNALS:
    void Found(const std::vector<qlonglong>& ids);
    void SearchEnded();
    void RowsRead(const std::vector<HistoryRow>& rows);
    /// Nothing if the entry is gone.
    void EntryRead(const std::optional<HistoryEntry>& entry);
    /// Entries that the search would find now and that may be new, newest first.
    void Arrived(const std::vector<qlonglong>& ids);
    /// Something in the ledger was changed.
    void Changed();
    /// @param problem  empty if the file is written
    void Exported(const QString& path, const QString& problem);
    /// The ledger cannot be read.
    void Failed(const QString& problem);

private:
    class Worker;

    template <typename Work>
    void Ask(Work&& work);

    QThread m_thread;
    Worker* m_worker;
    std::shared_ptr<std::atomic<int>> m_search;
};

} // namespace vantrel
