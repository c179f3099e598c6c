#include "card/RecordPicture.h"
#include "base/Failure.h"
#include "base/FileBeneath.h"
#include <algorithm>
#include <limits>
#include <optional>

namespace vantrel {

namespace {

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
        filled += values.Item(place->Value);
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

} // namespace vantrel
