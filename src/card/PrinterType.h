#pragma once

#include "card/StripeFamily.h"
#include <cstdint>
#include <span>

namespace vantrel {

/// Codes of `PrinterType` that the station names.
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

/// Where the form takes its size from: the printer's page once it is turned, its page as it is, a
/// fixed size, or nowhere.
enum class SizeSource { OrientedPage, Page, Fixed, Unchanged };

/// How far the printer is set up when a page of the type is loaded.
enum class SetUp { NotHere, Size, OrientationAndSize };

/// What one copy of a card does.
enum class CopyKind { Nothing, PagePass, OrientedPagePass, SerializedPass };

/// What one printer type means.
struct PrinterTypeRow
{
    std::int32_t Code;
    SizeSource Size;
    SetUp OnLoad;
    CopyKind Copy;
    /// How it takes the stripe; none for a type that takes none.
    const StripeFamily* Stripe = nullptr;
    /// Of a form with a fixed size, in twips.
    float FixedWidth = 0;
    float FixedHeight = 0;
};

/// All types that have a meaning, by their codes.
std::span<const PrinterTypeRow> PrinterTypes();

/// @return the row of a code. A code without one prints nothing and changes nothing.
const PrinterTypeRow& PrinterTypeOf(std::int32_t code);

/// What a printer type puts onto one track of the stripe, without the command text around it. For a
/// type that takes no stripe it is what the first command text family would get. Fails like
/// `EvaluateTrack`.
/// @param decimalSeparator  that of the machine, by which the EBT digit goes
/// @param trackNumber  1 to 3
QString StripeBody(std::int32_t printerType, const QString& formula, const FieldValues& values,
                   QChar decimalSeparator, int trackNumber);

} // namespace vantrel
