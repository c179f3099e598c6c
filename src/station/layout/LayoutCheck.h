#pragma once

#include "card/FieldValues.h"
#include "card/Finding.h"
#include "card/RecordPicture.h"
#include <QSizeF>
#include <functional>

namespace vantrel {

class CardDocument;
class Connection;
struct LayoutParamsRecord;

/// A page as it is in memory, saved or not.
struct PageInMemory
{
    /// Its size is the card's.
    const CardDocument& Document;
    const LayoutParamsRecord& Params;
};

/// A layout to check.
struct CheckedLayout
{
    Connection& LayoutDb;
    QString Name;
    /// The values of a record, or none.
    FieldValues Values = {};
    PictureSource Pictures = {};
    /// A page that is checked as it is in memory and not as it is stored; may be null.
    const PageInMemory* InMemory = nullptr;
    /// The size of a stored page's card in twips, and the dots to the inch of its printer.
    std::function<QSizeF(const LayoutParamsRecord& params)> CardSize = nullptr;
    std::function<int(const LayoutParamsRecord& params)> DotsPerInch = nullptr;
};

/// The size of a page's card in twips where its printer cannot be asked: that of its printer type
/// if that is fixed, else that of a plastic card.
QSizeF UsualCardSize(const LayoutParamsRecord& params);

/// Checks all pages of a layout in their order, see `CheckPage`. A page that cannot be read is left
/// out. Fails like `Recordset` if the pages cannot be listed.
Findings CheckLayout(const CheckedLayout& layout);

} // namespace vantrel
