#include "base/LengthUnit.h"
#include "base/Convert.h"
#include "base/DecimalText.h"
#include "base/Twips.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace vantrel {

namespace {

constexpr double MillimetresPerInch = 25.4;
constexpr double TwipsPerMillimetre = TwipsPerInch / MillimetresPerInch;
constexpr double MillimetresPerCentimetre = 10;

/// What may stand behind a typed number, and how many twips one of it is.
struct TypedUnit
{
    QLatin1StringView Word;
    double Twips;
};

constexpr TypedUnit TypedUnits[] = {
    {QLatin1StringView("mm"), TwipsPerMillimetre},
    {QLatin1StringView("cm"), TwipsPerMillimetre* MillimetresPerCentimetre},
    {QLatin1StringView("inch"), TwipsPerInch},
    {QLatin1StringView("inches"), TwipsPerInch},
    {QLatin1StringView("in"), TwipsPerInch},
    {QLatin1StringView("\""), TwipsPerInch},
    {QLatin1StringView("pt"), TwipsPerPoint},
    {QLatin1StringView("twips"), 1},
    {QLatin1StringView("twip"), 1},
};

int DecimalsOf(LengthUnit unit)
{
    constexpr int ofMillimetres = 2;
    constexpr int ofInches = 4;
    switch (unit) {
    case LengthUnit::Millimetres:
        return ofMillimetres;
    case LengthUnit::Inches:
        return ofInches;
    case LengthUnit::Twips:
        break;
    }
    return 0;
}

bool IsDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// Whether the text is digits with at most one point among them, and an optional sign.
bool IsPlainNumber(QStringView text)
{
    if (text.startsWith(u'-') || text.startsWith(u'+'))
        text = text.sliced(1);
    return std::ranges::any_of(text, IsDigit) &&
           std::ranges::all_of(text, [](QChar of) { return IsDigit(of) || of == u'.'; }) &&
           std::ranges::count(text, u'.') <= 1;
}

} // namespace

QString UnitName(LengthUnit unit)
{
    return QLatin1StringView(LengthUnitNames[static_cast<std::size_t>(unit)]);
}

double TwipsPerUnit(LengthUnit unit)
{
    switch (unit) {
    case LengthUnit::Millimetres:
        return TwipsPerMillimetre;
    case LengthUnit::Inches:
        return TwipsPerInch;
    case LengthUnit::Twips:
        break;
    }
    return 1;
}

QString LengthText(double twips, LengthUnit unit)
{
    QString text = QString::number(twips / TwipsPerUnit(unit), 'f', DecimalsOf(unit));
    if (text.contains(u'.')) {
        while (text.endsWith(u'0'))
            text.chop(1);
        if (text.endsWith(u'.'))
            text.chop(1);
    }
    return text == QLatin1StringView("-0") ? QStringLiteral("0") : text;
}

QString LengthWithUnit(double twips, LengthUnit unit)
{
    return LengthText(twips, unit) + u' ' + UnitName(unit);
}

std::optional<std::int32_t> LengthOfText(const QString& text, LengthUnit unit)
{
    const auto isOfUnit = [](QChar of) { return of.isLetter() || of == u'"'; };
    const auto behind = std::ranges::find_if(text, isOfUnit);
    const QString word = QStringView(behind, text.end()).trimmed().toString().toLower();
    QString number = QStringView(text.begin(), behind).trimmed().toString();
    number.replace(u',', u'.');
    if (!IsPlainNumber(number))
        return std::nullopt;
    double twips = TwipsPerUnit(unit);
    if (!word.isEmpty()) {
        const auto* const typed = std::ranges::find(TypedUnits, word, &TypedUnit::Word);
        if (typed == std::end(TypedUnits))
            return std::nullopt;
        twips = typed->Twips;
    }
    const double length = RoundHalfToEven(DecimalNumber(number) * twips);
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    if (!(std::abs(length) <= most))
        return std::nullopt;
    return static_cast<std::int32_t>(length);
}

} // namespace vantrel
