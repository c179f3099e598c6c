// The journal's macros would name this file and its routines in each line.
#define SD_JOURNAL_SUPPRESS_LOCATION

#include "service/Journal.h"
#include <QString>
#include <algorithm>
#include <sys/stat.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

namespace vantrel {

bool IsLogTheJournal()
{
    // The device and the inode of the stream, see systemd.exec(5).
    const QByteArray stream = qgetenv("JOURNAL_STREAM");
    struct stat errors
    {};
    return !stream.isEmpty() && ::fstat(STDERR_FILENO, &errors) == 0 &&
           stream == QByteArray::number(qulonglong{errors.st_dev}) + ':' +
                         QByteArray::number(qulonglong{errors.st_ino});
}

bool WriteToJournal(const std::vector<JournalField>& fields)
{
    std::vector<QByteArray> texts;
    texts.reserve(fields.size());
    std::transform(
        fields.begin(), fields.end(), std::back_inserter(texts),
        // A sum that is not yet bytes would outlive its parts.
        [](const JournalField& field) -> QByteArray { return field.Name + '=' + field.Value; });
    std::vector<iovec> parts;
    parts.reserve(texts.size());
    std::transform(texts.begin(), texts.end(), std::back_inserter(parts), [](QByteArray& text) {
        return iovec{text.data(), static_cast<std::size_t>(text.size())};
    });
    return ::sd_journal_sendv(parts.data(), static_cast<int>(parts.size())) == 0;
}

} // namespace vantrel
