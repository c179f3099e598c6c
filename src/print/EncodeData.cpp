#include "print/EncodeData.h"

namespace vantrel {

void EncodeData(Session& /*session*/, const QString& /*trackText*/, int /*trackNumber*/)
{
    // The magnetic stripe is not built yet; docs/architecture.md says what is still to come.
}

} // namespace vantrel
