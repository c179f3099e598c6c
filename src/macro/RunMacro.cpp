#include "macro/RunMacro.h"

namespace vantrel {

void RunMacro(Session& /*session*/, const QString& /*name*/)
{
    // Chains of layouts are not built yet; docs/architecture.md says what is still to come.
}

} // namespace vantrel
