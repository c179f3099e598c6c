#include "desktop/history/HistoryModel.h"
#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <array>

namespace vantrel {

namespace {

constexpr int RowsKept = 3000;
/// Rows that are read along with one that is looked at.
constexpr int RowsAround = 40;
constexpr int MostAsked = 600;

constexpr std::array<const char*, HistoryColumnCount> Titles{
    "No.", "Time", "Source", "Layout", "Values", "Numbers", "State", "Reason"};

QString TextOf(const HistoryRow& row, HistoryColumn column)
{
    switch (column) {
    case HistoryColumn::Number:
        return QString::number(row.Id);
    case HistoryColumn::Time:
        return QDateTime::fromMSecsSinceEpoch(row.Received)
            .toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    case HistoryColumn::Source:
        return row.Source;
    case HistoryColumn::Layout:
        return row.Layout;
    case HistoryColumn::Values:
        return row.Values;
    case HistoryColumn::Numbers:
        return row.Numbers;
    case HistoryColumn::State:
        return row.ReprintOf
                   ? NameOf(row.State) + QStringLiteral(" (reprint of %1)").arg(*row.ReprintOf)
                   : NameOf(row.State);
    case HistoryColumn::Reason:
        break;
    }
    return row.Reason;
}

/// Line ends and other control characters would make a row taller than its place.
QString InOneLine(QString text)
{
    for (QChar& character : text) {
        if (character.unicode() < 0x20)
            character = u' ';
    }
    return text;
}

} // namespace

HistoryModel::HistoryModel(HistoryReader& reader, QObject* parent)
    : QAbstractTableModel(parent), m_reader(reader), m_rows(RowsKept)
{
    connect(&reader, &HistoryReader::RowsRead, this, &HistoryModel::Take);
}

int HistoryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_ids.size());
}

int HistoryModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : HistoryColumnCount;
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const qlonglong id = IdAt(index.row());
    if (const HistoryRow* row = m_rows.object(id))
        return InOneLine(TextOf(*row, static_cast<HistoryColumn>(index.column())));
    Want(index.row());
    return index.column() == 0 ? QString::number(id) : QString();
}

QVariant HistoryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= HistoryColumnCount)
        return {};
    return QString(QLatin1StringView(Titles[static_cast<std::size_t>(section)]));
}

void HistoryModel::Clear()
{
    beginResetModel();
    m_ids.clear();
    m_rows.clear();
    m_wanted.clear();
    m_asked.clear();
    endResetModel();
}

void HistoryModel::Append(const std::vector<qlonglong>& ids)
{
    if (ids.empty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(ids.size()) - 1);
    m_ids.insert(m_ids.end(), ids.begin(), ids.end());
    endInsertRows();
}

int HistoryModel::Merge(const std::vector<qlonglong>& ids, int row)
{
    int above = 0;
    // From the oldest, so that the rows above keep their numbers meanwhile.
    for (auto id = ids.rbegin(); id != ids.rend();) {
        const auto place = std::ranges::lower_bound(m_ids, *id, std::greater<>());
        if (place != m_ids.end() && *place == *id) {
            ++id;
            continue;
        }
        // Those that come to stand beside each other are added together.
        const auto from = id;
        while (id != ids.rend() && (place == m_ids.begin() || *std::prev(place) > *id))
            ++id;
        const int at = static_cast<int>(place - m_ids.begin());
        const int count = static_cast<int>(id - from);
        beginInsertRows({}, at, at + count - 1);
        m_ids.insert(place, std::make_reverse_iterator(id), std::make_reverse_iterator(from));
        endInsertRows();
        if (at <= row)
            above += count;
    }
    return above;
}

void HistoryModel::Refresh(int first, int last)
{
    std::vector<qlonglong> ids;
    for (int row = std::max(first, 0); row <= std::min(last, rowCount() - 1); ++row)
        ids.push_back(IdAt(row));
    if (!ids.empty())
        m_reader.ReadRows(std::move(ids));
}

qlonglong HistoryModel::IdAt(int row) const
{
    return row >= 0 && row < rowCount() ? m_ids[static_cast<std::size_t>(row)] : 0;
}

int HistoryModel::RowAt(qlonglong id) const
{
    const auto place = std::ranges::lower_bound(m_ids, id, std::greater<>());
    return place != m_ids.end() && *place == id ? static_cast<int>(place - m_ids.begin()) : -1;
}

void HistoryModel::Want(int row) const
{
    m_wanted.insert(IdAt(row));
    if (m_willAsk)
        return;
    m_willAsk = true;
    QMetaObject::invokeMethod(const_cast<HistoryModel*>(this), &HistoryModel::AskForWanted,
                              Qt::QueuedConnection);
}

void HistoryModel::AskForWanted()
{
    m_willAsk = false;
    std::vector<qlonglong> ids;
    for (const qlonglong id : std::exchange(m_wanted, {})) {
        const int row = RowAt(id);
        if (row < 0)
            continue;
        for (int near = std::max(row - RowsAround, 0);
             near <= std::min(row + RowsAround, rowCount() - 1); ++near) {
            const qlonglong other = IdAt(near);
            if (std::ssize(ids) == MostAsked)
                break;
            // What was asked for comes; what was not is wanted again when it is painted.
            if (m_asked.contains(other) || m_rows.contains(other))
                continue;
            m_asked.insert(other);
            ids.push_back(other);
        }
    }
    if (!ids.empty())
        m_reader.ReadRows(std::move(ids));
}

void HistoryModel::Take(const std::vector<HistoryRow>& rows)
{
    m_asked.clear();
    for (const HistoryRow& row : rows) {
        const HistoryRow* before = m_rows.object(row.Id);
        if (before != nullptr && *before == row)
            continue;
        const bool wasShown = before != nullptr;
        m_rows.insert(row.Id, new HistoryRow(row));
        if (const int at = RowAt(row.Id); at >= 0)
            Q_EMIT dataChanged(index(at, 0), index(at, HistoryColumnCount - 1));
        if (wasShown)
            Q_EMIT EntryChanged(row.Id);
    }
}

} // namespace vantrel
