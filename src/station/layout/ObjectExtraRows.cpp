#include "station/layout/ObjectExtraRows.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "card/CardDocument.h"
#include "station/layout/PageKey.h"
#include "station/layout/StoreStatements.h"
#include "store/Connection.h"
#include "store/LayoutTables.h"
#include "store/StoredValue.h"
#include <QHash>
#include <QJsonDocument>
#include <algorithm>

namespace vantrel {

namespace {

const QString KindColumn = QStringLiteral("Kind");
const QString NameColumn = QStringLiteral("Name");
const QString PlaceColumn = QStringLiteral("Place");
const QString ExtrasColumn = QStringLiteral("Extras");

/// Characters of a static text that tell it from others.
constexpr qsizetype LongestName = 64;
/// The longest extras that are read, in characters.
constexpr qsizetype LongestExtras = 65536;

/// What tells an object of a page from the others.
struct ObjectName
{
    QString Kind;
    QString Name;
    int Place = 0;

    friend bool operator==(const ObjectName&, const ObjectName&) = default;
    friend size_t qHash(const ObjectName& name, size_t seed = 0) noexcept
    {
        return qHashMulti(seed, name.Kind, name.Name, name.Place);
    }
};

/// Names objects one after the other, in stacking order.
class ObjectNames
{
public:
    ObjectName Next(const CardObject& object)
    {
        ObjectName name = NameOf(object);
        name.Place = ++m_places[name];
        return name;
    }

private:
    static ObjectName NameOf(const CardObject& object)
    {
        switch (object.Family()) {
        case Family::lbl_DATA:
            return {Marker::DataFieldRow, object.DataField};
        case Family::lbl_TEXT:
            return {Marker::StaticTextRow, object.Caption().left(LongestName)};
        case Family::lbl_AUTO:
            return {Marker::AutoNumber, {}};
        case Family::img_CAM:
            return {Marker::Camera, {}};
        default:
            return {QStringLiteral("IMG"), {}};
        }
    }

    QHash<ObjectName, int> m_places;
};

struct ObjectExtra
{
    ObjectName Name;
    QString Extras;
};

std::vector<ObjectExtra> ExtrasOf(const CardDocument& document)
{
    std::vector<ObjectExtra> extras;
    ObjectNames names;
    for (const auto& object : document.Objects()) {
        if (!object->IsContent())
            continue;
        const ObjectName name = names.Next(*object);
        if (!object->Extras.isEmpty())
            extras.push_back(
                {name,
                 QString::fromUtf8(QJsonDocument(object->Extras).toJson(QJsonDocument::Compact))});
    }
    return extras;
}

void WriteExtra(Recordset& rows, const PageKey& page, const ObjectExtra& extra)
{
    if (rows.IsEof())
        rows.AddNew();
    rows.SetValue(QStringLiteral("LayoutName"), page.LayoutName);
    rows.SetValue(QStringLiteral("Page"), static_cast<int>(page.Page));
    rows.SetValue(KindColumn, extra.Name.Kind);
    rows.SetValue(NameColumn, extra.Name.Name);
    rows.SetValue(PlaceColumn, extra.Name.Place);
    rows.SetValue(ExtrasColumn, extra.Extras);
    rows.Update();
    rows.MoveNext();
}

} // namespace

bool HasExtras(Connection& store)
{
    return store.HasTable(QString(QLatin1StringView(ExtrasTable().Name)));
}

void GiveExtras(CardDocument& document, const std::vector<ColumnReader>& rows)
{
    if (rows.empty())
        return;
    QHash<ObjectName, QJsonObject> known;
    for (const ColumnReader& row : rows) {
        Skip("extras", [&] {
            const QString extras = JoinedText(row(ExtrasColumn));
            if (extras.size() <= LongestExtras)
                known.insert({JoinedText(row(KindColumn)), JoinedText(row(NameColumn)),
                              StoredLong(row(PlaceColumn))},
                             QJsonDocument::fromJson(extras.toUtf8()).object());
        });
    }
    ObjectNames names;
    for (const auto& object : document.Objects()) {
        if (object->IsContent())
            object->Extras = known.value(names.Next(*object));
    }
}

void LoadExtras(Connection& store, const PageKey& page, CardDocument& document)
{
    if (!HasExtras(store))
        return;
    Recordset rows(store);
    rows.Open(ExtrasOfPage(page.LayoutName, page.Page));
    std::vector<ColumnReader> readers;
    for (; !rows.IsEof(); rows.MoveNext()) {
        readers.emplace_back(
            [columns = rows.Columns(), values = rows.Values()](const QString& column) {
                return values.value(columns.indexOf(column));
            });
    }
    GiveExtras(document, readers);
}

void SaveExtras(Connection& store, const PageKey& page, const CardDocument& document)
{
    const std::vector<ObjectExtra> extras = ExtrasOf(document);
    if (!HasExtras(store)) {
        if (extras.empty())
            return;
        store.MakeTable(ExtrasTable());
    }
    Recordset rows(store);
    rows.Open(ExtrasOfPage(page.LayoutName, page.Page), CursorLock::Optimistic);
    for (const ObjectExtra& extra : extras)
        WriteExtra(rows, page, extra);
    for (; !rows.IsEof(); rows.MoveNext())
        rows.Delete();
}

} // namespace vantrel
