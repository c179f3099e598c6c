#pragma once

#include <QString>
#include <QVariant>
#include <cstdint>

namespace vantrel {

class FieldValues;
class Recordset;

/// Kinds of elements of a layout's output stream, as the store numbers them.
namespace StreamKind {
inline constexpr std::int32_t DataField = 0;
inline constexpr std::int32_t Text = 1;
inline constexpr std::int32_t Hex = 2;
inline constexpr std::int32_t Start = 3;
inline constexpr std::int32_t Stop = 4;
inline constexpr std::int32_t CarriageReturn = 5;
/// In a row on the screen only: the store has no such kind.
inline constexpr std::int32_t AutoNumber = 6;
} // namespace StreamKind

/// What the store keeps of one element; nulls among it.
struct StoredStreamElement
{
    QVariant ElementType;
    QVariant ElementData;
};

/// Reads the element in the cursor's current row. Fails like `Recordset`.
StoredStreamElement ReadStreamElement(const Recordset& rows);

/// What one element adds to the output; kinds that render nothing add nothing, hex codes among
/// them. Fails where a data field's number is no number or the record has no such value.
/// @param filter  characters taken out of a data field's value
QString RenderStreamElement(const StoredStreamElement& element, const QString& filter,
                            const FieldValues& values);

} // namespace vantrel
