#pragma once

#include "card/FieldValues.h"
#include "drawing/Picture.h"

namespace vantrel {

class CardDocument;

/// Sets the captions of a page's data fields from the values of a record, in the order of their
/// indexes. If a step fails for a field, the value, prefix or suffix of the field before is used.
/// @param decimalSeparator  the machine's, used by the EBT check digit
void FillDataFields(CardDocument& document, const FieldValues& values, QChar decimalSeparator);
/// Appends the check digits of automatic numbers to their captions; a number without a valid check
/// digit is skipped. A second call appends a second digit.
void CheckAutoNumbers(CardDocument& document, QChar decimalSeparator);
/// Sets the picture of all camera objects of the page.
void FillCameraImages(CardDocument& document, const Picture& picture);

} // namespace vantrel
