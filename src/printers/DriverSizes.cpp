#include "printers/DriverSizes.h"
#include "base/Twips.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

constexpr QByteArrayView DefaultKeyword{"*DefaultPageSize:"};
constexpr QByteArrayView SizeKeyword{"*PaperDimension "};
/// The most bytes of a description that are read; usual ones have some hundred kilobytes.
constexpr qint64 LargestDescription = 1 << 24;
/// In points; far beyond any sheet, and small enough that hundredths of a millimetre do not
/// overflow.
constexpr double LongestSide = 100000;

/// @return the side in hundredths of a millimetre, 0 if it is not valid
int SideOf(const QByteArray& points)
{
    const double side = points.toDouble();
    return side > 0 && side < LongestSide
               ? static_cast<int>(std::lround(HundredthsOfTwips(TwipsOfPoints(side))))
               : 0;
}

} // namespace

DriverSizes::DriverSizes(QIODevice& ppd)
{
    const QByteArray text = ppd.read(LargestDescription);
    for (qsizetype begin = 0; begin < text.size();) {
        qsizetype end = text.indexOf('\n', begin);
        if (end < 0)
            end = text.size();
        const auto line = QByteArrayView(text).sliced(begin, end - begin).trimmed();
        if (line.startsWith(DefaultKeyword))
            m_defaultName = line.sliced(DefaultKeyword.size()).trimmed().toByteArray();
        else if (line.startsWith(SizeKeyword))
            TakeSize(line.sliced(SizeKeyword.size()).toByteArray());
        begin = end + 1;
    }
}

/// Parses a line such as `CR80/Card: "153 243"`: name, translation and sides in points.
void DriverSizes::TakeSize(const QByteArray& line)
{
    const qsizetype colon = line.indexOf(':');
    const qsizetype open = line.indexOf('"', colon);
    const qsizetype close = line.indexOf('"', open + 1);
    if (colon < 0 || open < 0 || close < 0)
        return;
    const QByteArray name = line.first(colon).split('/').constFirst().trimmed();
    const QList<QByteArray> sides = line.sliced(open + 1, close - open - 1).simplified().split(' ');
    if (sides.size() != 2)
        return;
    const SheetSize size{SideOf(sides[0]), SideOf(sides[1])};
    if (size.Width > 0 && size.Length > 0)
        m_sizes.push_back({name, size});
}

std::optional<SheetSize> DriverSizes::Named(const QByteArray& name) const
{
    const auto found = std::find_if(m_sizes.begin(), m_sizes.end(), [&name](const NamedSize& size) {
        return size.Name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == m_sizes.end() ? std::nullopt : std::optional(found->Size);
}

} // namespace vantrel
