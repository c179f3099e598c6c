#include "base/DecimalText.h"
#include <QString>
#include <algorithm>

namespace vantrel {

namespace {

/// Longer texts are shortened before Qt converts them: it takes seconds for megabytes of digits.
constexpr qsizetype LongestReadWhole = 1000;
/// Enough significant digits to round any decimal text correctly, if a last digit 1 stands for all
/// further digits that are not all zero.
constexpr qsizetype MostDigits = 800;
/// Far beyond the powers of ten of a double; the second limit keeps the sums from overflowing.
constexpr qint64 HighestPower = 99'999;
constexpr qint64 HighestRead = qint64{1} << 50;

constexpr QLatin1Char Zero('0');

bool IsDigit(QChar character)
{
    return character >= Zero && character <= QLatin1Char('9');
}

/// The significant digits of a text, its power of ten, and whether digits other than zero were left
/// out.
struct Parts
{
    QString Digits;
    qint64 Power = 0;
    bool HasRest = false;

    void Take(QChar digit, bool isFraction)
    {
        if (Digits.size() == MostDigits) {
            HasRest = HasRest || digit != Zero;
            Power += isFraction ? 0 : 1;
            return;
        }
        if (!Digits.isEmpty() || digit != Zero)
            Digits.append(digit);
        Power -= isFraction ? 1 : 0;
    }
};

qint64 Exponent(QStringView text)
{
    const bool isNegative = text.startsWith(QLatin1Char('-'));
    qint64 value = 0;
    for (const QChar character : text) {
        if (IsDigit(character))
            value = std::min(value * 10 + (character.unicode() - u'0'), HighestRead);
    }
    return isNegative ? -value : value;
}

} // namespace

double DecimalNumber(QStringView number)
{
    if (number.size() <= LongestReadWhole)
        return number.toDouble();
    Parts parts;
    bool isFraction = false;
    for (qsizetype i = 0; i < number.size(); ++i) {
        const QChar character = number[i];
        if (IsDigit(character)) {
            parts.Take(character, isFraction);
        } else if (character == QLatin1Char('.')) {
            isFraction = true;
        } else if (i > 0) {
            parts.Power += Exponent(number.sliced(i + 1));
            break;
        }
    }
    if (parts.HasRest) {
        parts.Digits.append(QLatin1Char('1'));
        --parts.Power;
    }
    if (parts.Digits.isEmpty())
        parts.Digits = Zero;
    const QLatin1StringView sign(number.startsWith(QLatin1Char('-')) ? "-" : "");
    const qint64 power = std::clamp(parts.Power, -HighestPower, HighestPower);
    const QString text = sign + parts.Digits + QLatin1Char('E') + QString::number(power);
    return text.toDouble();
}

} // namespace vantrel
