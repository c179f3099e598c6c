#pragma once

#include "card/Finding.h"

namespace vantrel {

class CardDocument;
class FieldValues;
struct LayoutParamsRecord;

/// A page to check: its objects as they would be printed, with their texts and pictures.
struct CheckedPage
{
    /// Its size is the card's. An image whose picture is missing has none; one that a record names
    /// is marked as such, and has no picture and no problem where there is no record.
    const CardDocument& Document;
    const LayoutParamsRecord& Params;
    /// The values of a record. Without any, texts of fields are only names of fields: then bar
    /// codes of fields are not told to be impossible because of their text.
    const FieldValues& Values;
    /// Of the printer; 0 if they are not known.
    int DotsPerInch = 0;
    /// What a camera object shows before a picture was taken.
    vantrel::Picture CameraPlaceholder = {};
};

/// Checks a page and tells what would not print as it should: first what belongs to the page as a
/// whole, then the objects in stacking order. Takes time in proportion to the objects and their
/// texts. Changes nothing and never fails.
Findings CheckPage(const CheckedPage& page);

} // namespace vantrel
