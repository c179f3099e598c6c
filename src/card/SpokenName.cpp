#include "card/SpokenName.h"
#include "card/CardObject.h"
#include <QFileInfo>

namespace vantrel {

namespace {

constexpr qsizetype LongestShown = 40;
constexpr std::size_t MostNames = 8;

QString KindOf(const CardObject& object)
{
    switch (object.Family()) {
    case Family::lbl_DATA:
        return QStringLiteral("Data Field ") + object.DataField;
    case Family::lbl_TEXT:
        return QStringLiteral("Static Text");
    case Family::lbl_AUTO:
        return QStringLiteral("AutoNumber Field");
    case Family::img_LXV:
        return QStringLiteral("Image");
    case Family::img_CAM:
        return QStringLiteral("Camera Image");
    case Family::picHandle:
        break;
    }
    return {};
}

/// What the object shows, in one line.
QString ContentOf(const CardObject& object)
{
    const bool isPath = object.IsImage() && object.Tag != Marker::Camera;
    const QString content = isPath             ? QFileInfo(object.Tag).fileName()
                            : object.IsLabel() ? object.Caption().left(2 * LongestShown)
                                               : QString();
    const QString line = content.simplified();
    return line.size() <= LongestShown ? line
                                       : line.left(LongestShown).trimmed() + QStringLiteral(" ...");
}

} // namespace

QString SpokenName(const CardObject& object)
{
    const QString kind = KindOf(object);
    const QString content = ContentOf(object);
    return content.isEmpty() || content == kind
               ? kind
               : kind + QStringLiteral(" (") + content + QLatin1Char(')');
}

QString SpokenNames(const std::vector<CardObject*>& objects)
{
    QStringList names;
    for (const CardObject* object : objects) {
        if (static_cast<std::size_t>(names.size()) == MostNames) {
            names += QStringLiteral("and %1 more").arg(objects.size() - MostNames);
            break;
        }
        names += SpokenName(*object);
    }
    return names.join(QStringLiteral("\r\n"));
}

} // namespace vantrel
