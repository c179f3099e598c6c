#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Writes one magnetic track to the current printer, in the form its kind wants.
/// @param trackNumber  1 to 3
void EncodeData(Session& session, const QString& trackText, int trackNumber);

} // namespace vantrel
