#include "store/postgres/OddValues.h"
#include <QLocale>
#include <QRegularExpression>
#include <cmath>
#include <limits>

namespace vantrel {

namespace {

constexpr QLatin1StringView TextMark{"text:"};
constexpr QLatin1StringView CodedTextMark{"text64:"};
constexpr QLatin1StringView BytesMark{"bytes64:"};
constexpr QLatin1StringView RealMark{"real:"};

QVariant WholeIfExact(double number)
{
    constexpr auto least = static_cast<double>(std::numeric_limits<qlonglong>::min());
    if (number > least && number < -least && std::trunc(number) == number)
        return static_cast<qlonglong>(number);
    return number;
}

/// The number that a text stands for, else the text.
QVariant NumberOf(const QString& text)
{
    static const QRegularExpression form(QStringLiteral(
        "^[ \\t\\n\\f\\r\\v]*[+-]?(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?[ \\t\\n\\f\\r\\v]*$"));
    if (!form.match(text).hasMatch())
        return text;
    const QString number = text.trimmed();
    bool isWhole = false;
    const qlonglong whole = number.toLongLong(&isWhole);
    return isWhole ? QVariant(whole) : QVariant(number.toDouble());
}

/// As SQLite writes it: with a decimal point, and 15 digits at most.
QString RealText(double number)
{
    if (std::isinf(number))
        return number > 0 ? QStringLiteral("Inf") : QStringLiteral("-Inf");
    constexpr int digits = 15;
    QString text = QString::number(number, 'g', digits);
    if (!text.contains(u'.')) {
        const qsizetype exponent = text.indexOf(u'e');
        text.insert(exponent < 0 ? text.size() : exponent, QStringLiteral(".0"));
    }
    return text;
}

QVariant InTextColumn(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
        return QString::number(value.toLongLong());
    case QMetaType::Double:
        return RealText(value.toDouble());
    default:
        return value;
    }
}

/// As SQLite stores a value in a column of that type.
QVariant AsStored(const QVariant& value, const QByteArray& type)
{
    if (type == "BLOB" || value.typeId() == QMetaType::QByteArray)
        return value;
    if (type == "TEXT")
        return InTextColumn(value);
    QVariant number = value.typeId() == QMetaType::QString ? NumberOf(value.toString()) : value;
    if (number.typeId() == QMetaType::QString)
        return number;
    if (type == "REAL")
        return number.toDouble();
    return number.typeId() == QMetaType::Double ? WholeIfExact(number.toDouble())
                                                : QVariant(number.toLongLong());
}

bool Fits(const QVariant& stored, const QByteArray& type)
{
    switch (stored.typeId()) {
    case QMetaType::QString:
        return type == "TEXT" && !stored.toString().contains(QChar(QChar::Null));
    case QMetaType::LongLong:
        return type == "INTEGER";
    case QMetaType::Double:
        return type == "REAL";
    default:
        return type == "BLOB";
    }
}

QString Coded(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

QString OddText(const QVariant& stored)
{
    switch (stored.typeId()) {
    case QMetaType::Double:
        return RealMark + QString::number(stored.toDouble(), 'g', QLocale::FloatingPointShortest);
    case QMetaType::QByteArray:
        return BytesMark + Coded(stored.toByteArray());
    default: {
        const QString text = stored.toString();
        return text.contains(QChar(QChar::Null)) ? QString(CodedTextMark + Coded(text.toUtf8()))
                                                 : QString(TextMark + text);
    }
    }
}

QByteArray Decoded(QStringView coded)
{
    return QByteArray::fromBase64(coded.toLatin1());
}

} // namespace

FittedValue FitValue(const QVariant& value, const QByteArray& type)
{
    const bool isNan = value.typeId() == QMetaType::Double && std::isnan(value.toDouble());
    if (!value.isValid() || value.isNull() || isNan)
        return {};
    const QVariant stored = AsStored(value, type);
    if (Fits(stored, type))
        return {stored, {}};
    return {{}, OddText(stored)};
}

QVariant OddValue(const QString& odd)
{
    const QStringView text(odd);
    if (text.startsWith(TextMark))
        return text.sliced(TextMark.size()).toString();
    if (text.startsWith(CodedTextMark))
        return QString::fromUtf8(Decoded(text.sliced(CodedTextMark.size())));
    if (text.startsWith(BytesMark))
        return Decoded(text.sliced(BytesMark.size()));
    if (text.startsWith(RealMark))
        return text.sliced(RealMark.size()).toDouble();
    return {};
}

} // namespace vantrel
