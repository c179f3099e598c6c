#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Closes the open layout and deletes the named one's objects and parameters from the store. Its
/// serializer pattern and its place in macros stay behind. A failing step is passed over.
void DeleteLayoutRows(Session& session, const QString& layoutName);

} // namespace vantrel
