#include "card/TrackFormula.h"
#include "FuzzInput.h"
#include "base/Failure.h"
#include "card/FieldValues.h"
#include "station/compose/TrackElements.h"

// For any formula and any record: the evaluation produces text or fails, and the composer reads the
// formula it has written as the same elements.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vantrel;
    fuzz::Input input(data, size);
    const QString formula = input.Line();
    FieldValues values;
    while (!input.IsEmpty())
        values.Add(input.Line());
    // Some locales use a comma as the decimal separator.
    const QChar separator = values.Count() % 2 == 0 ? QLatin1Char('.') : QLatin1Char(',');
    qsizetype length = 0;
    try {
        EvaluateTrack(formula, values, separator,
                      [&](TokenKind, const QString& text) { length += text.size(); });
    } catch (const Failure&) {
        length = 0;
    }
    const QString once = WriteTrackElements(ReadTrackElements(formula));
    const QString twice = WriteTrackElements(ReadTrackElements(once));
    fuzz::Require(ReadTrackElements(once).size() >= ReadTrackElements(twice).size(),
                  "a row does not grow by being saved");
    return 0;
}
