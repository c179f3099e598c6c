#include "base/FileModes.h"
#include <sys/stat.h>

namespace vantrel {

void KeepNewFilesFromOthers()
{
    constexpr mode_t othersAndChanges = 0027;
    // A mask can be asked for only by setting another one.
    const mode_t own = ::umask(othersAndChanges);
    ::umask(own | othersAndChanges);
}

} // namespace vantrel
