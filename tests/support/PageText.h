#pragma once

#include <QString>

namespace vantrel {
class Session;
}

namespace vantrel::test {

/// Everything that belongs to the page in memory, as text: each object in stacking order with all
/// its properties, and the parameters of the page.
QString PageText(const vantrel::Session& session);

} // namespace vantrel::test
