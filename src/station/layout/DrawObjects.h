#pragma once

#include "card/CardObject.h"

namespace vantrel {

class CardDocument;

/// Position and size of a new object, in twips.
struct ObjectBox
{
    std::int32_t cTop = 0;
    std::int32_t cLeft = 0;
    std::int32_t cHeight = 0;
    std::int32_t cWidth = 0;
};

/// Appearance of a new text. `cBackStyle`, `cAlignment` and `cVisible` have no effect: new texts
/// are always transparent, left aligned and visible.
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

/// @file Functions that create card objects, on top of the existing ones. The document must be
/// loaded. The returned reference is valid until the document is cleared.

/// Creates a data field, a text that receives one value of the record; `FieldIndex` counts from 1.
CardObject& Draw_DataField(CardDocument& document, std::int16_t FieldIndex, const ObjectBox& box,
                           const TextLooks& looks);
/// Creates a static text. Without a caption it shows "Static Text " and its number.
CardObject& Draw_Label(CardDocument& document, const ObjectBox& box, const TextLooks& looks);
/// Creates an automatic number, which rises with every card. It is widened to fit its caption.
CardObject& Draw_AutoNumber(CardDocument& document, double cSeed, const ObjectBox& box,
                            const TextLooks& looks);
/// Creates an image from a picture file, stretched to its box.
CardObject& Draw_Image(CardDocument& document, const ObjectBox& box, std::int16_t cBorderStyle,
                       const Picture& cPicture, bool cVisible, const QString& sPath);
/// Creates a camera object. Without a camera picture it shows the placeholder.
CardObject& Draw_CamView(CardDocument& document, const ObjectBox& box, std::int16_t cBorderStyle,
                         const Picture& cPicture, bool cVisible, const QString& sPath);

/// The picture that a camera object shows before one was taken.
const Picture& CameraPlaceholder();

/// Lets camera objects that would stretch their picture fill their box in its own proportions.
void KeepCameraProportions(const CardDocument& document);

/// Whether the open page has a camera object.
bool DetectCamImages(const CardDocument& document);

} // namespace vantrel
