#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Prints the last record on every layout of the named macro.
void RunMacro(Session& session, const QString& name);

} // namespace vantrel
