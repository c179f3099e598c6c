#include "station/batch/RowSource.h"
#include "base/Failure.h"
#include <algorithm>

namespace vantrel {

namespace {

[[noreturn]] void Refuse(const QString& why)
{
    throw Failure(FailureNumber::InvalidCall, why);
}

QString ValueCount(qsizetype count)
{
    return count == 1 ? QStringLiteral("1 value") : QStringLiteral("%1 values").arg(count);
}

/// The names of a header as far as they fit into a message.
QString NamesText(const QStringList& names)
{
    constexpr qsizetype most = 200;
    QString text;
    for (const QString& name : names) {
        text += (text.isEmpty() ? QString() : QStringLiteral(", ")) + name.left(most);
        if (text.size() > most)
            return text.left(most) + QStringLiteral(" ..");
    }
    return text;
}

std::variant<TableReader, RecordReader> ReaderOf(ReadBytes read, const RowFormat& format)
{
    if (const auto* table = std::get_if<TableFormat>(&format.Written))
        return TableReader(std::move(read), *table);
    return RecordReader(std::move(read), std::get<RecordFormat>(format.Written));
}

} // namespace

RowSource::RowSource(ReadBytes read, RowFormat format)
    : m_format(std::move(format)), m_reader(ReaderOf(std::move(read), m_format))
{
    if (m_format.HasHeader)
        ReadHeader();
}

void RowSource::ReadHeader()
{
    auto* table = std::get_if<TableReader>(&m_reader);
    if (table == nullptr || !table->Next(m_names)) {
        m_hasEnded = true;
        return;
    }
    m_width = m_names.size();
    for (const QString& wanted : std::as_const(m_format.Columns)) {
        const auto index = m_names.indexOf(wanted);
        if (index < 0)
            Refuse(QStringLiteral("There is no column %1 in the first line: %2.")
                       .arg(wanted, NamesText(m_names)));
        if (m_names.indexOf(wanted, index + 1) >= 0)
            Refuse(QStringLiteral("The first line has the column %1 twice.").arg(wanted));
        m_chosen.push_back(index);
    }
    if (!m_chosen.empty())
        m_names = m_format.Columns;
}

bool RowSource::CanGoOn() const
{
    const auto* table = std::get_if<TableReader>(&m_reader);
    return !m_hasEnded && table != nullptr && table->CanGoOn();
}

bool RowSource::Next(BatchRow& row)
{
    if (m_hasEnded)
        return false;
    row = {};
    row.Number = m_number + 1;
    bool isRead = false;
    if (auto* table = std::get_if<TableReader>(&m_reader))
        isRead = NextOfTable(*table, row);
    else
        isRead = NextOfRecords(std::get<RecordReader>(m_reader), row);
    m_number += isRead ? 1 : 0;
    m_hasEnded = !isRead;
    return isRead;
}

bool RowSource::NextOfTable(TableReader& table, BatchRow& row)
{
    QStringList values;
    try {
        if (!table.Next(values))
            return false;
    } catch (const Failure&) {
        ++m_number;
        throw;
    }
    row.Line = table.Line();
    // A line of one empty value looks like an empty line.
    if (values.isEmpty() && m_width == 1)
        values.append(QString());
    if (values.isEmpty()) {
        ++m_number;
        Refuse(QStringLiteral("Line %1 is empty.").arg(row.Line));
    }
    if (!m_width)
        m_width = values.size();
    if (values.size() != *m_width) {
        ++m_number;
        Refuse(QStringLiteral("Line %1: %2 where the first line has %3.")
                   .arg(QString::number(row.Line), ValueCount(values.size()),
                        QString::number(*m_width)));
    }
    if (m_chosen.empty()) {
        row.Values = std::move(values);
        return true;
    }
    for (const qsizetype index : m_chosen)
        row.Values.append(values.at(index));
    return true;
}

bool RowSource::NextOfRecords(RecordReader& records, BatchRow& row)
{
    const bool isRead = records.Next([&](const QString& value) { row.Values.append(value); });
    row.Line = records.Number();
    return isRead;
}

QStringList ColumnNames(const QString& list)
{
    TableReader reader(ReadFrom(list.toUtf8()), {});
    QStringList names;
    reader.Next(names);
    return names;
}

} // namespace vantrel
