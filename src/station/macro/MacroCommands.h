#pragma once

#include <QString>

namespace vantrel {

class Session;

/// @file Making, renaming and removing macros at the station. A name that cannot be taken is told
/// with its reason, and asked for again. A record may run while the operator is asked.

/// Asks for a name and adds a macro of that name, without layouts.
/// @return its name; empty if none was added
QString MakeMacro(Session& session);
/// Asks for another name and renames the macro; if it is the active one, it stays active.
/// @return its name from then on; empty if it was not renamed
QString RenameMacroOf(Session& session, const QString& name);
/// Asks whether to remove the macro, and removes it with its list of layouts, which stay. If it was
/// the active one, no macro is active from then on. @return whether it was removed
bool RemoveMacroOf(Session& session, const QString& name);

} // namespace vantrel
