#include "card/ObjectNames.h"
#include "card/CaptionFigure.h"
#include <QFileInfo>
#include <QStringList>
#include <array>

namespace vantrel {

namespace {

/// In the order of the families.
constexpr std::array<QLatin1StringView, FamilyCount> Kinds{
    QLatin1StringView{"Data Field"}, QLatin1StringView{"Static Text"},
    QLatin1StringView{"AutoNumber Field"}, QLatin1StringView{"Image"},
    QLatin1StringView{"Camera Image"}};

constexpr qsizetype LongestShown = 40;
constexpr std::size_t MostNames = 8;

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

QString FamilyKind(Family family)
{
    return Kinds.at(static_cast<std::size_t>(family));
}

QString NumberedKind(const CardObject& object)
{
    const QString kind = FamilyKind(object.Family());
    return object.Family() == Family::lbl_DATA ? QString(kind + u' ' + object.DataField) : kind;
}

QString ObjectKind(const CardObject& object)
{
    QString kind = FamilyKind(object.Family());
    if (!object.IsLabel() || !IsFigureFont(object.Font()))
        return kind;
    // The font's name is a word for codes or shapes, a blank and the name of the kind.
    const QString& font = object.Font().Name;
    const QString figure = font.sliced(font.indexOf(u' ') + 1);
    return object.Family() == Family::lbl_TEXT ? figure
                                               : QString(kind + QStringLiteral(" as ") + figure);
}

QString ObjectText(const CardObject& object)
{
    if (object.IsLabel())
        return IsShapeFont(object.Font()) ? QString() : object.Caption();
    if (object.Family() != Family::img_LXV)
        return {};
    // The name only: the beginning of a long path would tell nothing.
    const qsizetype folder = object.Tag.lastIndexOf(u'/');
    return object.Tag.sliced(folder + 1);
}

QString SpokenName(const CardObject& object)
{
    const QString kind = NumberedKind(object);
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
