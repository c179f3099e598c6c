#include "base/Convert.h"
#include "base/DecimalText.h"
#include "base/Failure.h"
#include "base/Text.h"
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace vantrel {

namespace {

[[noreturn]] void FailMismatch()
{
    throw Failure(FailureNumber::TypeMismatch, QStringLiteral("Type mismatch"));
}

[[noreturn]] void FailOverflow()
{
    throw Failure(FailureNumber::Overflow, QStringLiteral("Overflow"));
}

void FailIfNull(const QVariant& value)
{
    if (value.isNull())
        throw Failure(FailureNumber::InvalidUseOfNull, QStringLiteral("Invalid use of Null"));
}

/// Accepts 0 to 9 only; digits of other scripts do not count as digits.
bool IsDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

bool IsSign(QChar character)
{
    return character == QLatin1Char('+') || character == QLatin1Char('-');
}

qsizetype EndOfDigits(QStringView text, qsizetype from)
{
    while (from < text.size() && IsDigit(text[from]))
        ++from;
    return from;
}

/// @return how many characters at the start of `text` are a decimal number with an optional sign,
/// fraction and exponent; 0 if there is none
qsizetype NumberLength(QStringView text)
{
    const qsizetype whole = !text.isEmpty() && IsSign(text[0]) ? 1 : 0;
    qsizetype end = EndOfDigits(text, whole);
    qsizetype digits = end - whole;
    if (end < text.size() && text[end] == QLatin1Char('.')) {
        const qsizetype fraction = end + 1;
        end = EndOfDigits(text, fraction);
        digits += end - fraction;
    }
    if (digits == 0)
        return 0;
    if (end < text.size() && text[end].toUpper() == QLatin1Char('E')) {
        const qsizetype exponent =
            end + 1 < text.size() && IsSign(text[end + 1]) ? end + 2 : end + 1;
        const qsizetype exponentEnd = EndOfDigits(text, exponent);
        if (exponentEnd > exponent)
            end = exponentEnd;
    }
    return end;
}

/// @return the number that the whole of `text` spells, infinite if it does not fit; nothing if
/// `text` is not a number
std::optional<double> WholeNumberText(const QString& text)
{
    const QStringView trimmed = TrimBlanks(text);
    if (trimmed.isEmpty() || NumberLength(trimmed) != trimmed.size())
        return std::nullopt;
    return DecimalNumber(trimmed);
}

template <typename Number>
Number RoundTo(double value)
{
    const double rounded = RoundHalfToEven(value);
    // The negated comparison also rejects NaN.
    if (!(rounded >= double{std::numeric_limits<Number>::min()} &&
          rounded <= double{std::numeric_limits<Number>::max()}))
        FailOverflow();
    return static_cast<Number>(rounded);
}

template <typename Number>
Number DigitsTo(const QString& text)
{
    const QStringView trimmed = TrimBlanks(text);
    const qsizetype first = !trimmed.isEmpty() && IsSign(trimmed[0]) ? 1 : 0;
    if (first == trimmed.size() || EndOfDigits(trimmed, first) != trimmed.size())
        FailMismatch();
    return RoundTo<Number>(DecimalNumber(trimmed));
}

/// Converts a store value that is not null to a number. True counts as -1.
double NumberOf(const QVariant& value)
{
    FailIfNull(value);
    switch (value.typeId()) {
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return ToDouble(value.toString());
    case QMetaType::Bool:
        return value.toBool() ? -1.0 : 0.0;
    default:
        break;
    }
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber)
        FailMismatch();
    return number;
}

/// Reads the digits after a prefix such as "&H".
double DigitsToBase(QStringView digits, int base)
{
    double number = 0.0;
    for (const QChar digit : digits) {
        bool isDigit = false;
        const int value = QStringView(&digit, 1).toInt(&isDigit, base);
        if (!isDigit || IsSign(digit))
            break;
        number = number * base + value;
    }
    return number;
}

} // namespace

bool IsNumeric(const QString& text)
{
    const std::optional<double> number = WholeNumberText(text);
    return number && std::isfinite(*number);
}

std::int32_t ToLong(const QString& text)
{
    return RoundToLong(ToDouble(text));
}

std::int16_t ToInteger(const QString& text)
{
    return RoundTo<std::int16_t>(ToDouble(text));
}

std::uint8_t ToByte(const QString& text)
{
    return RoundTo<std::uint8_t>(ToDouble(text));
}

double ToDouble(const QString& text)
{
    const std::optional<double> number = WholeNumberText(text);
    if (!number)
        FailMismatch();
    if (!std::isfinite(*number))
        FailOverflow();
    return *number;
}

std::int32_t ToWholeLong(const QString& text)
{
    return DigitsTo<std::int32_t>(text);
}

std::int16_t ToWholeInteger(const QString& text)
{
    return DigitsTo<std::int16_t>(text);
}

bool ToBoolean(const QString& text)
{
    const QStringView word = TrimBlanks(text);
    if (word.compare(BooleanText(true), Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(BooleanText(false), Qt::CaseInsensitive) == 0)
        return false;
    return ToDouble(text) != 0.0;
}

std::int32_t ToLong(const QVariant& value)
{
    return RoundToLong(NumberOf(value));
}

std::int16_t ToInteger(const QVariant& value)
{
    return RoundTo<std::int16_t>(NumberOf(value));
}

double ToDouble(const QVariant& value)
{
    return NumberOf(value);
}

bool ToBoolean(const QVariant& value)
{
    if (value.typeId() == QMetaType::QString)
        return ToBoolean(value.toString());
    return NumberOf(value) != 0.0;
}

QString ToText(const QVariant& value)
{
    FailIfNull(value);
    switch (value.typeId()) {
    case QMetaType::Bool:
        return BooleanText(value.toBool());
    case QMetaType::Double:
    case QMetaType::Float:
        return NumberText(value.toDouble());
    default:
        return value.toString();
    }
}

QString JoinedText(const QVariant& value)
{
    return value.isNull() ? QString() : ToText(value);
}

double RoundHalfToEven(double value)
{
    return std::nearbyint(value);
}

std::int32_t RoundToLong(double value)
{
    return RoundTo<std::int32_t>(value);
}

double Val(const QString& text)
{
    const QStringView number = TrimBlanks(text);
    if (number.startsWith(u"&H", Qt::CaseInsensitive))
        return DigitsToBase(number.sliced(2), 16);
    if (number.startsWith(u"&O", Qt::CaseInsensitive))
        return DigitsToBase(number.sliced(2), 8);
    const qsizetype length = NumberLength(number);
    return length == 0 ? 0.0 : DecimalNumber(number.first(length));
}

QString NumberText(double value)
{
    constexpr int significant = 15;
    if (value == 0.0)
        return QStringLiteral("0"); // never "-0"
    if (!std::isfinite(value))
        return QString::number(value);
    const QString scientific = QString::number(value, 'E', significant - 1);
    const qsizetype mark = scientific.indexOf(QLatin1Char('E'));

    QStringView mantissa = QStringView(scientific).first(mark);
    while (mantissa.endsWith(QLatin1Char('0')))
        mantissa.chop(1);
    if (mantissa.endsWith(QLatin1Char('.')))
        mantissa.chop(1);
    const int point = static_cast<int>(mantissa.indexOf(QLatin1Char('.')));
    const int fraction = point < 0 ? 0 : static_cast<int>(mantissa.size()) - point - 1;
    const int exponent = QStringView(scientific).sliced(mark + 1).toInt();
    const int decimals = std::max(0, fraction - exponent);
    if (exponent < significant && decimals <= significant)
        return QString::number(value, 'f', decimals);
    return mantissa.toString() + QStringView(scientific).sliced(mark).toString();
}

QString BooleanText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

} // namespace vantrel
