#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Deletes a layout's objects and parameters from the store and closes it. Its serializer pattern
/// and its place in macros stay behind. A failing step is passed over.
void DeleteLayoutRows(Session& session, const QString& layoutName);

} // namespace vantrel
