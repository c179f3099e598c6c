#include "card/ShownValues.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "card/AutoNumber.h"
#include "card/CardDocument.h"
#include "card/PourValues.h"
#include "card/RecordPicture.h"
#include "card/ValueShaping.h"
#include <algorithm>

namespace vantrel {

namespace {

/// The number of the value that a field shows; 0 for none.
int ValueNumberOf(const CardObject& field)
{
    int number = 0;
    Skip("number of the value", [&] { number = ToInteger(field.DataField); });
    return number;
}

/// A record that has the example for every field of the page.
FieldValues ExampleValues(const CardDocument& document, const CardObject& changed)
{
    int most = ValueNumberOf(changed);
    for (int index = 1; index <= document.HighestIndex(Family::lbl_DATA); ++index) {
        if (const CardObject* field = document.Find(Family::lbl_DATA, index))
            most = std::max(most, ValueNumberOf(*field));
    }
    FieldValues values;
    while (values.Count() < most)
        values.Add(ExampleValue);
    return values;
}

/// An object with the number that the next card gets, if it is one.
CardObject Raised(const CardObject& object)
{
    CardObject raised = object;
    Skip("number", [&] { Increment_If_AutoNumber(raised); });
    return raised;
}

} // namespace

std::unique_ptr<CardDocument> PageWithValues(const CardDocument& document,
                                             const FieldValues& values,
                                             const PictureSource& pictures, QChar decimalSeparator)
{
    auto page = std::make_unique<CardDocument>();
    page->Load();
    page->Width = document.Width;
    page->Height = document.Height;
    page->Tag = document.Tag;
    std::vector<std::unique_ptr<CardObject>> content;
    for (const auto& object : document.Objects()) {
        if (object->IsContent() && object->Index() > 0)
            content.push_back(std::make_unique<CardObject>(Raised(*object)));
    }
    page->PutContent(std::move(content));
    FillDataFields(*page, values, decimalSeparator);
    FillRecordPictures(*page, values, pictures);
    return page;
}

QString CaptionWithValues(const CardDocument& document, const CardObject& changed,
                          const FieldValues& values, QChar decimalSeparator)
{
    if (changed.Family() == Family::lbl_AUTO)
        return Raised(changed).Caption();
    CarriedValue carried;
    for (int index = 1; index <= document.HighestIndex(Family::lbl_DATA); ++index) {
        const CardObject* field = document.Find(Family::lbl_DATA, index);
        if (index >= changed.Index())
            break;
        if (field != nullptr)
            ShapeDataField(*field, values, decimalSeparator, carried);
    }
    CardObject shown = changed;
    shown.SetCaption(ShapeDataField(changed, values, decimalSeparator, carried));
    return shown.Caption();
}

ValueSample SampleOf(const CardDocument& document, const CardObject& changed,
                     const FieldValues& values, QChar decimalSeparator)
{
    if (changed.Family() == Family::lbl_AUTO) {
        const CardObject raised = Raised(changed);
        return {SampleSource::NextNumber, raised.DataField, raised.Caption()};
    }
    ValueSample sample;
    const bool hasRecord = values.Count() > 0;
    sample.Source = hasRecord ? SampleSource::Record : SampleSource::Example;
    const FieldValues shown = hasRecord ? values : ExampleValues(document, changed);
    Skip("value of the field", [&] { sample.Value = shown.Item(ValueNumberOf(changed)); });
    sample.Printed = CaptionWithValues(document, changed, shown, decimalSeparator);
    return sample;
}

} // namespace vantrel
