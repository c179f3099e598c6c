#pragma once

#include "card/FieldValues.h"
#include <QString>
#include <cstdint>

namespace vantrel {

class Printers;

/// Evaluates the formula of one magnetic track with the values of a record and writes the result to
/// the current printer, in the form that the printer type wants: command text on one line, or one
/// line for each token in the track's magnetic font. Other types evaluate it and send nothing.
/// Fails like `EvaluateTrack` and `Printer`, and at once: command text is not sent then; of a
/// magnetic font the lines before stand, and the font stays.
/// @param trackNumber  1 to 3
void EncodeData(Printers& printers, std::int32_t printerType, const FieldValues& values,
                const QString& formula, int trackNumber);

} // namespace vantrel
