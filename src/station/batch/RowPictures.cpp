#include "station/batch/RowPictures.h"
#include "card/RecordPicture.h"
#include "station/layout/StoreStatements.h"
#include "store/Recordset.h"
#include <QFileInfo>

namespace vantrel {

namespace {

bool WaitsInVain(const QString& path, const PictureSource& source)
{
    const qsizetype brace = path.indexOf(QLatin1Char('{'));
    return brace >= 0 && path.indexOf(QLatin1Char('}'), brace) > brace &&
           !source.IsNamedByRecord(path) && !QFileInfo::exists(path);
}

} // namespace

QStringList PathsWithoutValue(Connection& store, const RowPlan& plan, const PictureSource& source)
{
    QStringList paths;
    if (source.Folder.isEmpty())
        return paths;
    for (const PlannedCard& card : plan) {
        // Further copies have the same images.
        if (card.Copy > 1)
            continue;
        Recordset rows(store);
        for (rows.Open(ObjectsOfPage(card.Layout, card.Page)); !rows.IsEof(); rows.MoveNext()) {
            const QString path = rows.Value(QStringLiteral("C_ImagePath")).toString();
            if (WaitsInVain(path, source) && !paths.contains(path))
                paths.append(path);
        }
    }
    return paths;
}

} // namespace vantrel
