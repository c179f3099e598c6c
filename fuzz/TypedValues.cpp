#include "FuzzInput.h"
#include "base/LengthUnit.h"
#include "base/TimeText.h"
#include <QDateTime>

// For any text that somebody typed as a length or a time: it is one or it is none, and what is
// shown of it is read as the same.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vantrel;
    const QString text = QString::fromUtf8(fuzz::Input(data, size).Rest());
    for (const LengthUnit unit : {LengthUnit::Millimetres, LengthUnit::Inches, LengthUnit::Twips}) {
        const auto twips = LengthOfText(text, unit);
        if (!twips)
            continue;
        fuzz::Require(LengthOfText(LengthText(*twips, unit), unit) == twips,
                      "a length is read as it is shown");
        fuzz::Require(LengthOfText(LengthWithUnit(*twips, unit), LengthUnit::Twips) == twips,
                      "a unit behind a length counts");
    }
    const auto time = ReadTimeText(text);
    if (!time)
        return 0;
    const QString shown =
        QDateTime::fromMSecsSinceEpoch(*time, Qt::UTC).toString(Qt::ISODateWithMs);
    // Years of more than four digits have no text.
    if (shown.size() == 24)
        fuzz::Require(ReadTimeText(shown) == time, "a time is read as it is shown");
    return 0;
}
