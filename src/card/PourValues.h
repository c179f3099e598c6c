#pragma once

#include "card/FieldValues.h"
#include "drawing/Picture.h"

namespace vantrel {

class CardDocument;

/// Shapes the values of a record into the data fields of a page, in the order of their indexes.
/// What the field before left in hand carries over.
/// @param decimalSeparator  that of the machine, by which the EBT digit goes
void FillDataFields(CardDocument& document, const FieldValues& values, QChar decimalSeparator);
/// Appends the check digits of automatic numbers to what they show; one that cannot be had is
/// passed over. A second pass appends a second digit.
void CheckAutoNumbers(CardDocument& document, QChar decimalSeparator);
/// Gives the picture to all camera objects of the page.
void FillCameraImages(CardDocument& document, const Picture& picture);

} // namespace vantrel
