#include "card/SizeFields.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "card/CardDocument.h"
#include "card/Grips.h"

namespace vantrel {

namespace {

/// The member of an object that each field shows.
constexpr std::array<float CardObject::*, SizeFieldCount> Sides = {
    &CardObject::Top, &CardObject::Left, &CardObject::Height, &CardObject::Width};

} // namespace

SizeFields SizeFieldsOfSelected(const CardDocument& document)
{
    const CardObject* object = document.SelectedObject;
    if (object == nullptr)
        throw Failure(FailureNumber::ObjectNotSet, QStringLiteral("Object variable not set"));
    SizeFields fields;
    for (std::size_t field = 0; field < fields.size(); ++field)
        fields[field] = NumberText(static_cast<double>(object->*Sides[field]));
    return fields;
}

void StepUp(QString& field)
{
    field = NumberText(Val(field) + 1);
}

void StepDown(QString& field)
{
    const double number = Val(field);
    if (number >= 1)
        field = NumberText(number - 1);
}

void ApplySizeFields(CardDocument& document, const SizeFields& fields)
{
    CardObject* object = document.SelectedObject;
    if (object == nullptr)
        return;
    for (std::size_t field = 0; field < fields.size(); ++field)
        object->*Sides[field] = static_cast<float>(Val(fields[field]));
    AdjustHandles(document, *object);
}

} // namespace vantrel
