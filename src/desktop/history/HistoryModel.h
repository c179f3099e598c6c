#pragma once

#include "station/ledger/HistoryReader.h"
#include <QAbstractTableModel>
#include <QCache>
#include <QSet>

namespace vantrel {

/// The columns of the list of entries.
enum class HistoryColumn { Number, Time, Source, Layout, Values, Numbers, State, Reason };
inline constexpr int HistoryColumnCount = 8;

/// The entries that a search has found, newest first. It holds their numbers only; what a row shows
/// is read when the row is looked at, and forgotten when many others were.
class HistoryModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit HistoryModel(HistoryReader& reader, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void Clear();
    /// Adds older entries behind the others.
    void Append(const std::vector<qlonglong>& ids);
    /// Adds those that are missing at their places. @return how many of them stand above that row
    int Merge(const std::vector<qlonglong>& ids, int row);
    /// Reads rows again that may have changed.
    void Refresh(int first, int last);
    /// The number of the entry in a row; 0 for none.
    qlonglong IdAt(int row) const;
    /// The row of an entry; -1 for none.
    int RowAt(qlonglong id) const;

Q_SIGNALS:
    /// An entry whose row was shown has changed.
    void EntryChanged(qlonglong id);

private:
    void Take(const std::vector<HistoryRow>& rows);
    void Want(int row) const;
    void AskForWanted();

    HistoryReader& m_reader;
    std::vector<qlonglong> m_ids;
    QCache<qlonglong, HistoryRow> m_rows;
    mutable QSet<qlonglong> m_wanted;
    /// Entries that are being read.
    QSet<qlonglong> m_asked;
    mutable bool m_willAsk = false;
};

} // namespace vantrel
