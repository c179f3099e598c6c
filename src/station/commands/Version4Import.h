#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Draws the data fields, static texts and logo of a version 4 session file onto the document as it
/// stands, whether a layout is open or not. Nothing is saved. Anything that fails ends it silently
/// at that point, and what was drawn until then stays; a file that is missing draws nothing.
void ImportVersion4Session(Session& session, const QString& path);

} // namespace vantrel
