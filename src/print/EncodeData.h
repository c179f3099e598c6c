#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Evaluates the formula of one magnetic track with the values of the last record and writes the
/// result to the current printer, in the form that `PrinterType` wants: command text on one line,
/// or one line for each token in the track's magnetic font. Other types evaluate it and send
/// nothing. Fails like `EvaluateTrack` and `Printer`, and at once: command text is not sent then;
/// of a magnetic font the lines before stand, and the font stays.
/// @param trackNumber  1 to 3
void EncodeData(Session& session, const QString& trackText, int trackNumber);

/// What `EncodeData` puts onto the stripe, without the command text around it, and without sending
/// anything. For a type that sends nothing it is what the first command text family would get.
/// Fails like `EvaluateTrack`.
/// @param trackNumber  1 to 3
QString StripeBody(const Session& session, const QString& trackText, int trackNumber);

} // namespace vantrel
