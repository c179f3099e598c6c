#include "card/CheckDigits.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/Text.h"
#include <cmath>
#include <limits>

namespace vantrel {

namespace {

/// The schemes weight every second digit, starting with the first in their direction.
bool IsWeighted(qsizetype digitsBefore)
{
    return digitsBefore % 2 == 0;
}

/// Converts one character; a character that is not a digit counts as 0.
int LenientDigit(QChar character)
{
    const bool isDigit = character >= QLatin1Char('0') && character <= QLatin1Char('9');
    return isDigit ? character.unicode() - u'0' : 0;
}

/// Converts one character; fails if it is not a digit.
int StrictDigit(QChar character)
{
    const int digit = LenientDigit(character);
    if (digit == 0 && character != QLatin1Char('0'))
        throw Failure(FailureNumber::TypeMismatch, QStringLiteral("Type mismatch"));
    return digit;
}

template <typename Counter>
void AddTo(Counter& sum, int number)
{
    if (number > std::numeric_limits<Counter>::max() - sum)
        throw Failure(FailureNumber::Overflow, QStringLiteral("Overflow"));
    sum = static_cast<Counter>(sum + number);
}

double LenientSum(const QString& text)
{
    double sum = 0.0;
    for (const QChar character : text)
        sum += LenientDigit(character);
    return sum;
}

/// @return the decimal text of a doubled number of up to 15 digits. The result can have 16 digits,
/// one more than `NumberText` writes, and all of them are exact
QString DoubledText(double doubled)
{
    constexpr double exactBelow = 2E15;
    const auto whole = static_cast<qint64>(std::fabs(doubled) < exactBelow ? doubled : 0.0);
    return static_cast<double>(whole) == doubled ? QString::number(whole) : NumberText(doubled);
}

} // namespace

std::int32_t Mod10CheckDigit(const QString& text)
{
    const QStringView digits = TrimBlanks(text);
    std::int32_t total = 0;
    for (qsizetype i = 0; i < digits.size(); ++i)
        AddTo(total, StrictDigit(digits[i]) * (IsWeighted(i) ? 3 : 1));
    const std::int32_t last = total % 10;
    return last == 0 ? 0 : 10 - last;
}

QString CodabarCheckDigit(QString& text)
{
    text.remove(QLatin1Char(' '));

    QString doubledOnes; // the rightmost digit and every second one to its left
    QString singleOnes;
    for (qsizetype i = 0; i < text.size(); ++i)
        (IsWeighted(text.size() - 1 - i) ? doubledOnes : singleOnes).append(text[i]);

    // Doubling them as one number gives the same digit sum as doubling each digit separately.
    const double total = LenientSum(DoubledText(Val(doubledOnes) * 2.0)) + LenientSum(singleOnes);
    const std::int32_t last = RoundToLong(total) % 10;
    return QString::number(last == 0 ? 0 : 10 - last);
}

std::int16_t EbtCheckDigit(const QString& text, QChar decimalSeparator)
{
    std::int16_t sum = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        int digit = StrictDigit(text[i]);
        if (IsWeighted(i))
            digit *= 2;
        AddTo(sum, digit > 9 ? digit - 9 : digit);
    }

    // The digit is the one after the "." in the quotient's text. On a machine with another decimal
    // separator no "." is found, and the first digit is used instead.
    const float quotient = static_cast<float>(sum) / 10.0F;
    QString quotientText = QString::number(static_cast<double>(quotient), 'f', 1);
    quotientText.replace(QLatin1Char('.'), decimalSeparator);
    const qsizetype behindPoint = InStr(1, quotientText, QStringLiteral(".")) + 1;
    return static_cast<std::int16_t>(10 - ToInteger(Mid(quotientText, behindPoint, 1)));
}

} // namespace vantrel
