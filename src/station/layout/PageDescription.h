#pragma once

#include "card/LayoutParamsRecord.h"
#include "store/ColumnReader.h"
#include <QString>
#include <cstdint>
#include <vector>

namespace vantrel {

class CardDocument;
class Connection;

/// A page as it is stored, without its automatic numbers: what is needed to print a card of it
/// again after the layout was changed.
struct PageDescription
{
    /// SHA-256 of the content in hexadecimal.
    QString Hash;
    /// JSON: the columns of the page's row in `LayoutParams`, of its rows in `Controls`, and of
    /// those in `ObjectExtras` if there are any.
    /// Pictures are named by their paths.
    QString Content;
};

/// Describes a page of the store. A page without rows has a description too. Fails like
/// `Recordset`.
PageDescription DescribePage(Connection& layoutDb, const QString& layoutName, std::int16_t page);

/// Builds the objects and the parameters of a described page. The document must be loaded and
/// without content. Content that cannot be read gives an empty page.
void BuildPage(const QString& content, CardDocument& document, LayoutParamsRecord& params);
/// The rows of the described layout's output stream, in their order; empty if it has none.
std::vector<ColumnReader> StreamRows(const QString& content);

} // namespace vantrel
