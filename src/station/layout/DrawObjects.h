#pragma once

#include "card/CardObject.h"

namespace vantrel {

class CardDocument;
class Session;

/// Where an object is put, in twips.
struct ObjectBox
{
    std::int32_t cTop = 0;
    std::int32_t cLeft = 0;
    std::int32_t cHeight = 0;
    std::int32_t cWidth = 0;
};

/// The looks a creation routine is given. `cBackStyle`, `cAlignment` and `cVisible` have no effect
/// on texts: they are always transparent, left aligned and visible at first.
struct TextLooks
{
    ColorValue cBackColor = ColorWhite;
    ColorValue cForeColor = ColorBlack;
    std::int16_t cBorderStyle = 1;
    std::int16_t cAppearance = 0;
    std::int16_t cBackStyle = 1;
    Font cFont;
    bool cVisible = true;
    QString cCaption;
    std::int16_t cAlignment = 1;
};

/// @file Every card object is made by one of these, on top of the others. The returned reference is
/// valid until the next clear.

/// A text that receives one value of the record.
CardObject& Draw_DataField(Session& session, std::int16_t FieldIndex, const ObjectBox& box,
                           const TextLooks& looks);
/// A static text; without a caption it is called "Static Text " and its number.
CardObject& Draw_Label(Session& session, const ObjectBox& box, const TextLooks& looks);
/// A number that rises with every card; widened to hold its caption.
CardObject& Draw_AutoNumber(Session& session, double cSeed, const ObjectBox& box,
                            const TextLooks& looks);
/// A picture from a file, stretched to its box.
CardObject& Draw_Image(Session& session, const ObjectBox& box, std::int16_t cBorderStyle,
                       const Picture& cPicture, bool cVisible, const QString& sPath);
/// The place of a camera picture; without one it shows the placeholder.
CardObject& Draw_CamView(Session& session, const ObjectBox& box, std::int16_t cBorderStyle,
                         const Picture& cPicture, bool cVisible, const QString& sPath);

/// The picture a camera object shows until one was taken.
const Picture& CameraPlaceholder();

/// Whether the open page has a camera object.
bool DetectCamImages(const CardDocument& document);

} // namespace vantrel
