#include "card/PourValues.h"
#include "base/Skip.h"
#include "card/CardDocument.h"
#include "card/CheckDigits.h"
#include "card/ValueShaping.h"

namespace vantrel {

namespace {

// A check digit that an earlier pass appended counts as part of the number.
void AppendCheckDigit(CardObject& number, QChar decimalSeparator)
{
    const QString caption = number.Caption();
    QString text = caption;
    if (const auto digit = CheckDigitByWord(number.DataMember, text, decimalSeparator))
        number.SetCaption(caption + *digit);
}

} // namespace

void FillDataFields(CardDocument& document, const FieldValues& values, QChar decimalSeparator)
{
    CarriedValue carried;
    ++document.Pours;
    const int highest = document.HighestIndex(Family::lbl_DATA);
    for (int index = 1; index <= highest; ++index) {
        if (CardObject* field = document.Find(Family::lbl_DATA, index))
            field->SetCaption(ShapeDataField(*field, values, decimalSeparator, carried));
    }
}

void CheckAutoNumbers(CardDocument& document, QChar decimalSeparator)
{
    const int highest = document.HighestIndex(Family::lbl_AUTO);
    for (int index = 0; index <= highest; ++index) {
        if (CardObject* number = document.Find(Family::lbl_AUTO, index))
            Skip("check digit of a number", [&] { AppendCheckDigit(*number, decimalSeparator); });
    }
}

void FillCameraImages(CardDocument& document, const Picture& picture)
{
    const int highest = document.HighestIndex(Family::img_CAM);
    for (int index = 1; index <= highest; ++index) {
        if (CardObject* image = document.Find(Family::img_CAM, index))
            image->Picture = picture;
    }
}

} // namespace vantrel
