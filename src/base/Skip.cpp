#include "base/Skip.h"
#include <QLoggingCategory>

namespace vantrel {

namespace {
Q_LOGGING_CATEGORY(skipLog, "vantrel.skip", QtCriticalMsg)
}

void LogSkipped(const char* step, const Failure& failure)
{
    qCDebug(skipLog).noquote() << step << "was passed over:" << failure.Number() << failure.Text();
}

} // namespace vantrel
