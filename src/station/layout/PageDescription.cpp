#include "station/layout/PageDescription.h"
#include "base/Skip.h"
#include "card/CardDocument.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/ObjectExtraRows.h"
#include "station/layout/RowToObject.h"
#include "station/layout/StoreStatements.h"
#include "station/layout/StoredNumbers.h"
#include "store/ReadAhead.h"
#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <deque>

namespace vantrel {

namespace {

const QString ParamsKey = QStringLiteral("params");
const QString ObjectsKey = QStringLiteral("objects");
const QString ExtrasKey = QStringLiteral("extras");
const QString StreamKey = QStringLiteral("stream");

/// Descriptions that are kept, of the pages that were printed last.
constexpr std::size_t PagesKept = 16;

/// The rows of a part of a page as they are stored; numbers are null.
struct PartOfPage
{
    QStringList Columns;
    std::vector<QVariantList> Rows;

    friend bool operator==(const PartOfPage&, const PartOfPage&) = default;
};

struct PageRows
{
    PartOfPage Params;
    PartOfPage Objects;
    /// Of most pages empty.
    PartOfPage Extras;
    PartOfPage Stream;

    friend bool operator==(const PageRows&, const PageRows&) = default;
};

PartOfPage ReadPart(Connection& layoutDb, const QString& statement)
{
    PartOfPage part;
    Recordset rows(layoutDb);
    rows.Open(statement);
    if (rows.IsEof())
        return part;
    part.Columns = rows.Columns();
    const qsizetype number = part.Columns.indexOf(QStringLiteral("C_Value"));
    for (; !rows.IsEof(); rows.MoveNext()) {
        part.Rows.push_back(rows.Values());
        // The number stands with the card; the page stays the same when it rises.
        if (number >= 0 && IsNumberRow(rows))
            part.Rows.back()[number] = QVariant();
    }
    return part;
}

QJsonObject DescribeRow(const QVariantList& row, const QStringList& columns)
{
    QJsonObject described;
    for (qsizetype i = 0; i < columns.size(); ++i) {
        // The key of a row changes when its page is made anew.
        if (!row[i].isNull() && columns[i] != QStringLiteral("ID"))
            described.insert(columns[i], QJsonValue::fromVariant(row[i]));
    }
    return described;
}

void DescribePart(QJsonObject& description, const QString& key, const PartOfPage& part)
{
    QJsonArray rows;
    for (const QVariantList& row : part.Rows)
        rows.append(DescribeRow(row, part.Columns));
    if (!rows.isEmpty())
        description.insert(key, rows);
}

PageDescription Describe(const PageRows& page)
{
    QJsonObject description;
    DescribePart(description, ParamsKey, page.Params);
    DescribePart(description, ObjectsKey, page.Objects);
    DescribePart(description, ExtrasKey, page.Extras);
    DescribePart(description, StreamKey, page.Stream);
    const QByteArray content = QJsonDocument(description).toJson(QJsonDocument::Compact);
    const QByteArray hash = QCryptographicHash::hash(content, QCryptographicHash::Sha256);
    return {QString::fromLatin1(hash.toHex()), QString::fromUtf8(content)};
}

ColumnReader ReaderOf(const QJsonObject& row)
{
    return [row](const QString& column) {
        const auto found = row.constFind(column);
        return found == row.constEnd() ? QVariant() : found->toVariant();
    };
}

} // namespace

PageDescription DescribePage(Connection& layoutDb, const QString& layoutName, std::int16_t page)
{
    const bool hasExtras = HasExtras(layoutDb);
    QStringList statements{ParamsOfPage(layoutName, page), ObjectsOfPage(layoutName, page),
                           StreamOfLayout(layoutName)};
    if (hasExtras)
        statements.append(ExtrasOfPage(layoutName, page));
    const ReadAhead ahead(layoutDb, statements);
    PageRows rows{ReadPart(layoutDb, ParamsOfPage(layoutName, page)),
                  ReadPart(layoutDb, ObjectsOfPage(layoutName, page)),
                  hasExtras ? ReadPart(layoutDb, ExtrasOfPage(layoutName, page)) : PartOfPage(),
                  ReadPart(layoutDb, StreamOfLayout(layoutName))};
    // A station prints the same few pages all day.
    static std::deque<std::pair<PageRows, PageDescription>> described;
    const auto known = std::find_if(described.begin(), described.end(),
                                    [&](const auto& one) { return one.first == rows; });
    if (known != described.end())
        return known->second;
    PageDescription description = Describe(rows);
    described.emplace_front(std::move(rows), description);
    if (described.size() > PagesKept)
        described.pop_back();
    return description;
}

void BuildPage(const QString& content, CardDocument& document, LayoutParamsRecord& params)
{
    const QJsonObject description = QJsonDocument::fromJson(content.toUtf8()).object();
    ReadParams(params, ReaderOf(description.value(ParamsKey).toArray().first().toObject()));
    document.Tag = params.BackImg1Path;
    const QJsonArray objects = description.value(ObjectsKey).toArray();
    for (const auto& object : objects)
        Skip("object", [&] { RowToObject(document, ReaderOf(object.toObject())); });
    std::vector<ColumnReader> extras;
    const QJsonArray extraRows = description.value(ExtrasKey).toArray();
    for (const auto& row : extraRows)
        extras.push_back(ReaderOf(row.toObject()));
    GiveExtras(document, extras);
}

std::vector<ColumnReader> StreamRows(const QString& content)
{
    std::vector<ColumnReader> rows;
    const QJsonObject description = QJsonDocument::fromJson(content.toUtf8()).object();
    const QJsonArray stream = description.value(StreamKey).toArray();
    for (const auto& row : stream)
        rows.push_back(ReaderOf(row.toObject()));
    return rows;
}

} // namespace vantrel
