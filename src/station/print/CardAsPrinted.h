#pragma once

#include "card/LayoutParamsRecord.h"
#include "card/RecordPicture.h"
#include <QImage>
#include <QStringList>
#include <vector>

namespace vantrel {

class CardDocument;
struct LedgerCard;

/// Builds the page on which a card was printed, with its values, and with its numbers one lower
/// than they were, since drawing a page raises them. The document must be loaded and without
/// content.
/// @param page  the description of the page, see `PageDescription`
/// @param pictures  where the pictures are that its values name
void BuildCard(const QString& page, const FieldValues& values, const LedgerCard& card,
               const PictureSource& pictures, CardDocument& document, LayoutParamsRecord& params);

/// An object of a page that shows a value of the record.
struct ValueUse
{
    /// Position of the value, from 1.
    int Value = 0;
    /// The object's name and the text on the card, such as "Data Field 1" and "No. 4711".
    QString Object;
    QString Text;
};

/// A card as it was printed.
struct CardAsPrinted
{
    /// Null if the page was not kept, or sends a line instead of drawing a card.
    QImage Picture;
    /// The line that was sent instead; empty for a card that was drawn.
    QString Line;
    /// Files of pictures that are not there any more, and why a picture that the record names is
    /// not on the card.
    QStringList MissingPictures;
    /// Whether a camera picture stood on it, which is not kept.
    bool HasCameraPicture = false;
    std::vector<ValueUse> Uses;
};

/// Draws a card as it was printed. Never fails; what cannot be drawn is left out.
/// @param pictures  where the pictures are that its values name
/// @param room  what the picture has to fit into, in pixels
CardAsPrinted DrawCardAsPrinted(const QString& page, const FieldValues& values,
                                const LedgerCard& card, const PictureSource& pictures, QSize room);

} // namespace vantrel
