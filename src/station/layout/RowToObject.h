#pragma once

#include "base/Font.h"
#include "store/ColumnReader.h"
#include <optional>

namespace vantrel {

class CardDocument;

/// Creates the card object of a row of `Controls`. The document must be loaded. A row of an unknown
/// type creates nothing; a value that cannot be applied leaves the default. Never fails.
void RowToObject(CardDocument& document, const ColumnReader& row);

/// As long as it lives, texts that are made from rows have their own fonts also where the document
/// has a font for all new texts.
class OwnFonts
{
public:
    explicit OwnFonts(CardDocument& document);
    OwnFonts(const OwnFonts&) = delete;
    OwnFonts& operator=(const OwnFonts&) = delete;
    ~OwnFonts();

private:
    CardDocument& m_document;
    std::optional<Font> m_defaultFont;
};

} // namespace vantrel
