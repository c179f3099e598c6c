#pragma once

namespace vantrel {

/// Takes from this process's new files and folders what others than its user and group could do
/// with them, and from the group what would change them, on top of what the user's own mask takes.
/// Cards, settings and the store tell of people. Each program calls it before all else; files that
/// exist keep their modes.
void KeepNewFilesFromOthers();

} // namespace vantrel
