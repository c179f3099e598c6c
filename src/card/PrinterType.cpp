#include "card/PrinterType.h"
#include <algorithm>

namespace vantrel {

namespace {

// clang-format off
constexpr PrinterTypeRow Rows[] = {
    {PrinterTypeCode::Fargo,          SizeSource::OrientedPage, SetUp::OrientationAndSize, CopyKind::OrientedPagePass, &StripeFamilies::Fargo},
    {PrinterTypeCode::Eltron,         SizeSource::OrientedPage, SetUp::Size,               CopyKind::PagePass,         &StripeFamilies::Eltron},
    {PrinterTypeCode::Serialized,     SizeSource::Page,         SetUp::NotHere,            CopyKind::SerializedPass},
    {PrinterTypeCode::FontLongNames,  SizeSource::OrientedPage, SetUp::OrientationAndSize, CopyKind::PagePass,         &StripeFamilies::FontLongNames},
    {PrinterTypeCode::FontShortNames, SizeSource::OrientedPage, SetUp::OrientationAndSize, CopyKind::PagePass,         &StripeFamilies::FontShortNames},
    {PrinterTypeCode::Plain,          SizeSource::OrientedPage, SetUp::NotHere,            CopyKind::PagePass},
    {PrinterTypeCode::PlainFixedSize, SizeSource::Fixed,        SetUp::NotHere,            CopyKind::PagePass,         nullptr, 8000, 2000},
    {PrinterTypeCode::Nisca,          SizeSource::OrientedPage, SetUp::NotHere,            CopyKind::PagePass,         &StripeFamilies::Nisca},
};
// clang-format on

constexpr PrinterTypeRow WithoutMeaning = {0, SizeSource::Unchanged, SetUp::NotHere,
                                           CopyKind::Nothing};

} // namespace

std::span<const PrinterTypeRow> PrinterTypes()
{
    return Rows;
}

const PrinterTypeRow& PrinterTypeOf(std::int32_t code)
{
    const auto* const row = std::ranges::find(Rows, code, &PrinterTypeRow::Code);
    return row == std::end(Rows) ? WithoutMeaning : *row;
}

QString StripeBody(std::int32_t printerType, const QString& formula, const FieldValues& values,
                   QChar decimalSeparator, int trackNumber)
{
    const StripeFamily* const family = PrinterTypeOf(printerType).Stripe;
    return StripeTrack(family == nullptr ? StripeFamilies::Fargo : *family, trackNumber)
        .Body(formula, values, decimalSeparator);
}

} // namespace vantrel
