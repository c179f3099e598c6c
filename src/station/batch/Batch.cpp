#include "station/batch/Batch.h"
#include "base/Convert.h"
#include <QDataStream>
#include <QIODevice>
#include <algorithm>

namespace vantrel {

namespace {

bool IsOf(const PageNumbers& numbers, const PlannedCard& card)
{
    return numbers.Layout == card.Layout && numbers.Page == card.Page;
}

// The templates find these only where they stand before them.
QDataStream& operator<<(QDataStream& stream, const BatchRow& part);
QDataStream& operator>>(QDataStream& stream, BatchRow& part);
QDataStream& operator<<(QDataStream& stream, const PageNumbers& part);
QDataStream& operator>>(QDataStream& stream, PageNumbers& part);
QDataStream& operator<<(QDataStream& stream, const JobOutcome& part);
QDataStream& operator>>(QDataStream& stream, JobOutcome& part);
QDataStream& operator<<(QDataStream& stream, const CardResult& part);
QDataStream& operator>>(QDataStream& stream, CardResult& part);
QDataStream& operator<<(QDataStream& stream, const RowResult& part);
QDataStream& operator>>(QDataStream& stream, RowResult& part);

template <typename Item>
QDataStream& operator<<(QDataStream& stream, const std::vector<Item>& items)
{
    stream << static_cast<qint64>(items.size());
    for (const Item& item : items)
        stream << item;
    return stream;
}

template <typename Item>
QDataStream& operator>>(QDataStream& stream, std::vector<Item>& items)
{
    qint64 count = 0;
    stream >> count;
    items.clear();
    for (qint64 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        Item item{};
        stream >> item;
        items.push_back(std::move(item));
    }
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const BatchRow& row)
{
    return stream << row.Number << row.Line << row.Values;
}

QDataStream& operator>>(QDataStream& stream, BatchRow& row)
{
    return stream >> row.Number >> row.Line >> row.Values;
}

QDataStream& operator<<(QDataStream& stream, const PageNumbers& numbers)
{
    return stream << numbers.Layout << numbers.Page << numbers.CardsPerRow << numbers.First;
}

QDataStream& operator>>(QDataStream& stream, PageNumbers& numbers)
{
    return stream >> numbers.Layout >> numbers.Page >> numbers.CardsPerRow >> numbers.First;
}

QDataStream& operator<<(QDataStream& stream, const JobOutcome& outcome)
{
    return stream << outcome.HandedOver << outcome.JobId << outcome.File << outcome.Reason;
}

QDataStream& operator>>(QDataStream& stream, JobOutcome& outcome)
{
    return stream >> outcome.HandedOver >> outcome.JobId >> outcome.File >> outcome.Reason;
}

QDataStream& operator<<(QDataStream& stream, const CardResult& result)
{
    return stream << result.Job << result.Remark;
}

QDataStream& operator>>(QDataStream& stream, CardResult& result)
{
    return stream >> result.Job >> result.Remark;
}

QDataStream& operator<<(QDataStream& stream, const RowResult& result)
{
    return stream << result.Number << result.Line << result.Cards << result.Reason;
}

QDataStream& operator>>(QDataStream& stream, RowResult& result)
{
    return stream >> result.Number >> result.Line >> result.Cards >> result.Reason;
}

template <typename... Parts>
QByteArray Written(const Parts&... parts)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    (stream << ... << parts);
    return bytes;
}

} // namespace

QStringList NumbersOnCard(const Batch& batch, const RowPlan& plan, std::size_t row,
                          std::size_t index)
{
    const PlannedCard& card = plan.at(index);
    const auto numbers = std::find_if(batch.Numbers.begin(), batch.Numbers.end(),
                                      [&](const PageNumbers& page) { return IsOf(page, card); });
    QStringList texts;
    if (numbers == batch.Numbers.end())
        return texts;
    const auto before =
        std::count_if(plan.begin(), plan.begin() + static_cast<std::ptrdiff_t>(index),
                      [&](const PlannedCard& earlier) { return IsOf(*numbers, earlier); });
    const double place =
        static_cast<double>(row) * numbers->CardsPerRow + static_cast<double>(before);
    for (const double first : numbers->First)
        texts.append(NumberText(first + place));
    return texts;
}

QByteArray BytesOf(const Batch& batch)
{
    return Written(batch.Rows, batch.Columns, batch.Numbers, batch.FirstFile);
}

Batch BatchOf(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    Batch batch;
    stream >> batch.Rows >> batch.Columns >> batch.Numbers >> batch.FirstFile;
    return batch;
}

QByteArray BytesOf(const std::vector<RowResult>& results)
{
    return Written(results);
}

std::vector<RowResult> ResultsOf(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    std::vector<RowResult> results;
    stream >> results;
    return results;
}

} // namespace vantrel
