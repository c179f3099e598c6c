#include "station/commands/SessionSwitch.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include "station/session/Settings.h"
#include <QDir>
#include <limits>

namespace vantrel {

void SetSessionActive(const QString& folder, const QString& session, bool active)
{
    bool isNumber = false;
    const uint number = session.toUInt(&isNumber);
    if (!isNumber || number > std::numeric_limits<std::uint8_t>::max())
        throw Failure(FailureNumber::InvalidCall,
                      QStringLiteral("This is no session's number, 0 to 255: ") + session);
    const QString path = QDir(folder).filePath(QStringLiteral("SessionStatus.ini"));
    if (!QDir(folder).exists() ||
        !WriteProfileValue(path, SessionSection(static_cast<std::uint8_t>(number)),
                           QStringLiteral("Active"), BooleanText(active)))
        throw Failure(FailureNumber::PathNotFound, QStringLiteral("Cannot be written: ") + path);
}

} // namespace vantrel
