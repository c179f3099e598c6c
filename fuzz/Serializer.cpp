#include "FuzzInput.h"
#include "base/Failure.h"
#include "card/FieldValues.h"
#include "station/compose/StreamElement.h"
#include "station/print/SerializerElement.h"

// Any stored element over any record renders or fails, and can be read into the composer's row.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vantrel;
    fuzz::Input input(data, size);
    const QString filter = input.Line();
    StoredStreamElement stored;
    const std::uint8_t kind = input.Byte();
    // A type is a number in a sound store, and may be a text or nothing in another.
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
