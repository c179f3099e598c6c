#include "store/postgres/PostgresValues.h"
#include "base/Failure.h"
#include <QLocale>
#include <cmath>
#include <limits>

namespace vantrel {

namespace {

/// The server's numbers of its own types, which never change.
constexpr Oid BoolType = 16;
constexpr Oid BytesType = 17;
constexpr Oid LongType = 20;
constexpr Oid ShortType = 21;
constexpr Oid IntegerType = 23;
constexpr Oid TextType = 25;
constexpr Oid SingleType = 700;
constexpr Oid RealType = 701;
constexpr Oid NumericType = 1700;

constexpr int TextForm = 0;
constexpr int BinaryForm = 1;

Oid TypeOf(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
        return LongType;
    case QMetaType::Double:
        return RealType;
    case QMetaType::QByteArray:
        return BytesType;
    default:
        return TextType;
    }
}

Oid TypeNamed(const QByteArray& type)
{
    if (type == "INTEGER")
        return LongType;
    if (type == "REAL")
        return RealType;
    return type == "BLOB" ? BytesType : TextType;
}

/// The shortest text that reads back as the same number.
QByteArray RealText(double number)
{
    if (std::isinf(number))
        return number > 0 ? "Infinity" : "-Infinity";
    return QByteArray::number(number, 'g', QLocale::FloatingPointShortest);
}

QByteArray Written(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? "1" : "0";
    case QMetaType::Int:
    case QMetaType::LongLong:
        return QByteArray::number(value.toLongLong());
    case QMetaType::Double:
        return RealText(value.toDouble());
    case QMetaType::QByteArray:
        return value.toByteArray();
    default:
        return value.toString().toUtf8();
    }
}

bool IsNull(const QVariant& value)
{
    return !value.isValid() || value.isNull() ||
           (value.typeId() == QMetaType::Double && std::isnan(value.toDouble()));
}

QByteArray BytesOf(const char* text)
{
    std::size_t length = 0;
    unsigned char* bytes = PQunescapeBytea(reinterpret_cast<const unsigned char*>(text), &length);
    QByteArray found(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(length));
    PQfreemem(bytes);
    return found;
}

double RealOf(const QByteArray& text)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (text.endsWith("Infinity"))
        return text.startsWith('-') ? -infinity : infinity;
    return text.toDouble();
}

/// A sum of whole numbers is one itself.
QVariant NumericOf(const QByteArray& text)
{
    bool isWhole = false;
    const qlonglong whole = text.toLongLong(&isWhole);
    return isWhole ? QVariant(whole) : QVariant(text.toDouble());
}

} // namespace

PostgresParameters::PostgresParameters(const QVariantList& values)
{
    for (const QVariant& value : values)
        Add(value, IsNull(value) ? Oid{0} : TypeOf(value));
}

void PostgresParameters::Add(const QVariant& value, const QByteArray& type)
{
    Add(value, TypeNamed(type));
}

void PostgresParameters::Add(const QVariant& value, Oid type)
{
    m_types.push_back(type);
    m_formats.push_back(type == BytesType ? BinaryForm : TextForm);
    if (IsNull(value)) {
        m_values.emplace_back();
        return;
    }
    QByteArray written = Written(value);
    if (type != BytesType && written.contains('\0'))
        throw Failure(FailureNumber::StatementInvalid,
                      QStringLiteral("The layout database: a text holds a null character."));
    m_values.emplace_back(std::move(written));
}

std::size_t PostgresParameters::Size() const
{
    std::size_t size = 0;
    for (const auto& value : m_values)
        size += value ? static_cast<std::size_t>(value->size()) : 0;
    return size;
}

std::vector<const char*> PostgresParameters::Values() const
{
    std::vector<const char*> values;
    for (const auto& value : m_values)
        values.push_back(value ? value->constData() : nullptr);
    return values;
}

std::vector<int> PostgresParameters::Lengths() const
{
    std::vector<int> lengths;
    for (const auto& value : m_values)
        lengths.push_back(value ? static_cast<int>(value->size()) : 0);
    return lengths;
}

QVariant PostgresValue(const PGresult* result, int row, int column)
{
    if (PQgetisnull(result, row, column) == 1)
        return {};
    const char* text = PQgetvalue(result, row, column);
    const QByteArray bytes = QByteArray::fromRawData(text, PQgetlength(result, row, column));
    switch (PQftype(result, column)) {
    case BoolType:
        return qlonglong{bytes == "t"};
    case ShortType:
    case IntegerType:
    case LongType:
        return bytes.toLongLong();
    case SingleType:
    case RealType:
        return RealOf(bytes);
    case NumericType:
        return NumericOf(bytes);
    case BytesType:
        return BytesOf(text);
    default:
        // An empty text must not become a null `QString`.
        return bytes.isEmpty() ? QStringLiteral("") : QString::fromUtf8(bytes);
    }
}

} // namespace vantrel
