#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Prints the last record on every layout of the macro, in row order, even if automatic printing is
/// off for a layout. Afterwards no layout is open where records print on the surface; behind it,
/// nothing is opened or closed. A failing step is skipped: an unknown macro prints nothing, and a
/// layout that no longer exists is skipped. The logging category `vantrel.macro`, off by default,
/// logs each layout.
void RunMacro(Session& session, const QString& name);

} // namespace vantrel
