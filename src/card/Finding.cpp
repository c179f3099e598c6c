#include "card/Finding.h"
#include "card/ObjectNames.h"
#include <QFileInfo>
#include <array>

namespace vantrel {

namespace {

constexpr auto Error = FindingWeight::Error;
constexpr auto Warning = FindingWeight::Warning;

constexpr std::array<FindingRow, FindingKindCount> Table = {{
    {FindingKind::TextLeavesBox, QLatin1StringView{"text-leaves-box"}, Warning},
    {FindingKind::TextLeavesCard, QLatin1StringView{"text-leaves-card"}, Error},
    {FindingKind::PictureMissing, QLatin1StringView{"picture-missing"}, Error},
    {FindingKind::PictureCoarse, QLatin1StringView{"picture-coarse"}, Warning},
    {FindingKind::CodeTooFine, QLatin1StringView{"code-too-fine"}, Warning},
    {FindingKind::CodeImpossible, QLatin1StringView{"code-impossible"}, Error},
    {FindingKind::TrackImpossible, QLatin1StringView{"track-impossible"}, Error},
    {FindingKind::TrackCharacters, QLatin1StringView{"track-characters"}, Error},
    {FindingKind::TrackLength, QLatin1StringView{"track-length"}, Error},
    {FindingKind::FontMissing, QLatin1StringView{"font-missing"}, Warning},
    {FindingKind::ContrastLow, QLatin1StringView{"contrast-low"}, Warning},
}};

/// Characters of a static text that name it.
constexpr qsizetype LongestExcerpt = 24;

QString Excerpt(const QString& text)
{
    // A line end within it is no letter.
    QString part = text.left(LongestExcerpt + 1).simplified();
    if (text.size() > LongestExcerpt)
        part = part.left(LongestExcerpt) + QChar(0x2026);
    return part;
}

} // namespace

const FindingRow& RowOf(FindingKind kind)
{
    return Table.at(static_cast<std::size_t>(kind));
}

QLatin1StringView WordOf(FindingWeight weight)
{
    return weight == Error ? QLatin1StringView{"error"} : QLatin1StringView{"warning"};
}

QString FindingNameOf(const CardObject& object)
{
    QString kind = NumberedKind(object);
    if (object.Family() == Family::lbl_TEXT)
        return kind + QStringLiteral(" \"") + Excerpt(object.Caption()) + u'"';
    if (object.Family() != Family::img_LXV)
        return kind;
    const QString file = QFileInfo(object.Tag).fileName();
    return file.isEmpty() ? kind : QString(kind + u' ' + file);
}

Finding FindingOn(const CardObject& object, FindingKind kind)
{
    return {.Kind = kind,
            .Object = ObjectKey{object.Family(), object.Index()},
            .Where = FindingNameOf(object)};
}

CardRemark RemarkOf(const Finding& finding)
{
    return {finding.Where + QStringLiteral(": ") + finding.What, finding.Detail};
}

} // namespace vantrel
