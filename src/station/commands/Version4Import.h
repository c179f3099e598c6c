#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Adds the data fields, static texts and logo of a version 4 session file to the document, even if
/// no layout is open. Nothing is saved. The first failure silently ends the import; objects added
/// until then stay. A missing file adds nothing. Never fails.
void ImportVersion4Session(Session& session, const QString& path);

} // namespace vantrel
