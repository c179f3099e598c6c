#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Prints the last record on every layout of the named macro, in row order, whatever the layouts'
/// own automatic printing says; no layout is open behind it. A failing step is passed over: a name
/// that is not found prints nothing, a layout that is gone has an empty turn. The logging category
/// `vantrel.macro`, off by default, tells the layouts as they come.
void RunMacro(Session& session, const QString& name);

} // namespace vantrel
