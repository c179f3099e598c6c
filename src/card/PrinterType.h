#pragma once

#include "card/StripeFamily.h"
#include <cstdint>
#include <span>

namespace vantrel {

/// Codes of `PrinterType` that have a name.
namespace PrinterTypeCode {
inline constexpr std::int32_t Fargo = 1;
inline constexpr std::int32_t Eltron = 2;
inline constexpr std::int32_t Serialized = 3;
inline constexpr std::int32_t FontLongNames = 4;
inline constexpr std::int32_t FontShortNames = 5;
inline constexpr std::int32_t Plain = 9;
inline constexpr std::int32_t PlainFixedSize = 10;
inline constexpr std::int32_t Nisca = 11;
} // namespace PrinterTypeCode

/// The source of the form's size: the printer's page after its orientation is set, its page as it
/// is, a fixed size, or no change.
enum class SizeSource { OrientedPage, Page, Fixed, Unchanged };

/// What is set on the printer when a page of the type is loaded.
enum class SetUp { NotHere, Size, OrientationAndSize };

/// How one copy of a card is printed.
enum class CopyKind { Nothing, PagePass, OrientedPagePass, SerializedPass };

/// The properties of one printer type.
struct PrinterTypeRow
{
    std::int32_t Code;
    SizeSource Size;
    SetUp OnLoad;
    CopyKind Copy;
    /// How it receives the stripe; null for a type without a stripe.
    const StripeFamily* Stripe = nullptr;
    /// Size of a form with a fixed size, in twips.
    float FixedWidth = 0;
    float FixedHeight = 0;
};

/// All supported types, by their codes.
std::span<const PrinterTypeRow> PrinterTypes();

/// @return the row of a code. The row for an unknown code prints nothing and changes nothing. Never
/// fails
const PrinterTypeRow& PrinterTypeOf(std::int32_t code);

/// The data that a printer type encodes on one track, without the command text around it. For a
/// type without a stripe it is the data for the first family. Fails like `EvaluateTrack`.
/// @param decimalSeparator  the machine's, used by the EBT check digit
/// @param trackNumber  1 to 3
QString StripeBody(std::int32_t printerType, const QString& formula, const FieldValues& values,
                   QChar decimalSeparator, int trackNumber);

} // namespace vantrel
