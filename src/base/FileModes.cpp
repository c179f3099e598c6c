#include "base/FileModes.h"
#include <sys/stat.h>

namespace vantrel {

void KeepNewFilesFromOthers()
{
    constexpr mode_t othersAndChanges = 0027;
    // umask() reports the present mask only when it sets a new one.
    const mode_t own = ::umask(othersAndChanges);
    ::umask(own | othersAndChanges);
}

} // namespace vantrel
