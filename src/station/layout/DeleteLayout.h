#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Closes the open layout and deletes the objects and parameters of the named layout from the
/// database. Its output stream and its entries in macros stay. A failing step is skipped.
void DeleteLayoutRows(Session& session, const QString& layoutName);

} // namespace vantrel
