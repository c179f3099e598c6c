#pragma once

#include "card/FieldValues.h"
#include <QString>
#include <cstdint>

namespace vantrel {

class Printers;

/// Evaluates the formula of one magnetic track with the values of a record and sends the result to
/// the current printer in the form of the printer type: command text on one line, or one line for
/// each token in the track's magnetic font. For other types it is evaluated and not sent. Fails
/// like `EvaluateTrack` and `Printer`. Command text is then not sent; lines already printed in a
/// magnetic font stay, and so does the font.
/// @param trackNumber  1 to 3
void EncodeData(Printers& printers, std::int32_t printerType, const FieldValues& values,
                const QString& formula, int trackNumber);

} // namespace vantrel
