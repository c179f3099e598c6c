#include "base/HexCodes.h"
#include "FuzzInput.h"

// Decoding never makes a text longer, and a text without a bracket is unchanged.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vantrel;
    const QString text = FromCodePage(fuzz::Input(data, size).Rest());
    const QString decoded = DecodeHexCodes(text);
    fuzz::Require(decoded.size() <= text.size(), "a code is longer than its character");
    if (!text.contains(QLatin1Char('[')))
        fuzz::Require(decoded == text, "a text without codes stays");
    return 0;
}
