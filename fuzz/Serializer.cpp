#include "FuzzInput.h"
#include "base/Failure.h"
#include "card/FieldValues.h"
#include "station/compose/StreamElement.h"
#include "station/print/SerializerElement.h"

// For any stored element and any record: rendering succeeds or fails, and the composer can read the
// element.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vantrel;
    fuzz::Input input(data, size);
    const QString filter = input.Line();
    StoredStreamElement stored;
    const std::uint8_t kind = input.Byte();
    // The type is a number in a valid database, but may be a text or null in a damaged one.
    if (kind < 128)
        stored.ElementType = static_cast<int>(kind) - 8;
    else if (kind < 192)
        stored.ElementType = input.Line();
    stored.ElementData = input.Line();
    FieldValues values;
    while (!input.IsEmpty())
        values.Add(input.Line());
    try {
        RenderStreamElement(stored, filter, values);
    } catch (const Failure&) {
        stored.ElementData.clear();
    }
    try {
        if (const auto element = StreamElementOf(stored)) {
            LookOf(*element);
            StoredFormOf(*element);
        }
    } catch (const Failure&) {
        return 0;
    }
    return 0;
}
