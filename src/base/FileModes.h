#pragma once

namespace vantrel {

/// Tightens the umask of this process: new files and folders give no access to other users and no
/// write access to the group, in addition to what the user's own umask removes. Cards, settings and
/// the database hold personal data. Each program calls it first; existing files keep their modes.
/// Never fails.
void KeepNewFilesFromOthers();

} // namespace vantrel
