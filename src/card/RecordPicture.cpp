#include "card/RecordPicture.h"
#include "base/Failure.h"
#include "base/FileBeneath.h"
#include "card/CardDocument.h"
#include <algorithm>
#include <climits>
#include <limits>
#include <optional>

namespace vantrel {

namespace {

/// Characters of a name that a file can have.
constexpr qsizetype LongestName = PATH_MAX;

bool IsDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/// The number of the value that a placeholder names, without its braces. A number too large for any
/// record is one that no record has.
std::optional<int> ValueNamed(QStringView name, const QStringList& columns)
{
    if (!name.isEmpty() && name.front() != QLatin1Char('0') &&
        std::all_of(name.begin(), name.end(), IsDigit)) {
        bool isNumber = false;
        const int number = name.toInt(&isNumber);
        return isNumber ? number : std::numeric_limits<int>::max();
    }
    const qsizetype column = name.isEmpty() ? -1 : columns.indexOf(name);
    return column < 0 ? std::nullopt : std::optional(static_cast<int>(column) + 1);
}

/// A placeholder in a path, with its braces.
struct Placeholder
{
    qsizetype Begin = 0;
    qsizetype End = 0;
    int Value = 0;
};

std::optional<Placeholder> FindPlaceholder(QStringView path, const QStringList& columns,
                                           qsizetype from)
{
    qsizetype end = -1;
    for (qsizetype begin = path.indexOf(QLatin1Char('{'), from); begin >= 0;
         begin = path.indexOf(QLatin1Char('{'), begin + 1)) {
        if (end < begin)
            end = path.indexOf(QLatin1Char('}'), begin);
        if (end < 0)
            return std::nullopt;
        if (const auto value = ValueNamed(path.sliced(begin + 1, end - begin - 1), columns))
            return Placeholder{begin, end + 1, *value};
    }
    return std::nullopt;
}

} // namespace

bool HasPlaceholder(const QString& path, const QStringList& columns)
{
    return FindPlaceholder(path, columns, 0).has_value();
}

QString FilledPath(const QString& path, const FieldValues& values, const QStringList& columns)
{
    QString filled;
    qsizetype from = 0;
    while (const auto place = FindPlaceholder(path, columns, from)) {
        if (place->Value > values.Count())
            throw Failure(
                FailureNumber::SubscriptOutOfRange,
                QStringLiteral("The record has no value for \"%1\"")
                    .arg(QStringView(path).sliced(place->Begin, place->End - place->Begin)));
        filled += QStringView(path).sliced(from, place->Begin - from);
        // A longer name is refused whatever follows.
        filled += values.Item(place->Value).left(LongestName + 1);
        from = place->End;
    }
    return filled + QStringView(path).sliced(from);
}

Picture SafePictureIn(const QString& folder, const QString& name)
{
    const FileBeneath file(folder, name);
    try {
        return LoadPicture(file.Descriptor(), folder + QLatin1Char('/') + name);
    } catch (const Failure& failure) {
        throw Failure(failure.Number(),
                      QStringLiteral("\"%1\" is no picture, or not a whole one").arg(name));
    }
}

bool PictureSource::IsNamedByRecord(const QString& path) const
{
    return !Folder.isEmpty() && HasPlaceholder(NameIn(path), Columns);
}

bool PictureSource::MayBeNamedByRow(const QString& path) const
{
    const QString name = NameIn(path);
    const auto begin = name.indexOf(QLatin1Char('{'));
    return !Folder.isEmpty() && begin >= 0 && name.indexOf(QLatin1Char('}'), begin) > begin + 1;
}

QString PictureSource::NameIn(const QString& path) const
{
    if (!path.startsWith(Folder))
        return path;
    qsizetype begin = Folder.size();
    while (begin < path.size() && path[begin] == QLatin1Char('/'))
        ++begin;
    const bool isWithin = begin > Folder.size() || Folder.endsWith(QLatin1Char('/'));
    return isWithin ? path.sliced(begin) : path;
}

void FillRecordPictures(CardDocument& document, const FieldValues& values,
                        const PictureSource& source)
{
    if (source.Folder.isEmpty() || values.Count() == 0)
        return;
    for (const auto& object : document.Objects()) {
        object->IsRecordPicture = false;
        object->PictureProblem.clear();
        if (!object->IsContent() || !object->IsImage() || object->Tag == Marker::Camera ||
            !source.IsNamedByRecord(object->Tag))
            continue;
        object->IsRecordPicture = true;
        object->Picture = Picture();
        try {
            object->Picture = SafePictureIn(
                source.Folder, FilledPath(source.NameIn(object->Tag), values, source.Columns));
        } catch (const Failure& failure) {
            object->PictureProblem = failure.Text();
        }
    }
}

} // namespace vantrel
