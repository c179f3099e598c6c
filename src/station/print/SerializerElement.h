#pragma once

#include "store/ColumnReader.h"
#include <QString>
#include <QVariant>
#include <cstdint>

namespace vantrel {

class FieldValues;

/// Kinds of elements of a layout's output stream, by their numbers in the database.
namespace StreamKind {
inline constexpr std::int32_t DataField = 0;
inline constexpr std::int32_t Text = 1;
inline constexpr std::int32_t Hex = 2;
inline constexpr std::int32_t Start = 3;
inline constexpr std::int32_t Stop = 4;
inline constexpr std::int32_t CarriageReturn = 5;
/// Used in the composer only; it is never stored.
inline constexpr std::int32_t AutoNumber = 6;
} // namespace StreamKind

/// The stored columns of one element; each may be null.
struct StoredStreamElement
{
    QVariant ElementType;
    QVariant ElementData;
};

/// Reads the element of a row of `Serializer`. Fails like `Recordset`.
StoredStreamElement ReadStreamElement(const ColumnReader& row);

/// The text that one element adds to the output. Some kinds, such as hex codes, add nothing. Fails
/// with `TypeMismatch` or `Overflow` if a data field's number is invalid, with
/// `SubscriptOutOfRange` if the record has no such value.
/// @param filter  characters that are removed from a data field's value
QString RenderStreamElement(const StoredStreamElement& element, const QString& filter,
                            const FieldValues& values);

} // namespace vantrel
