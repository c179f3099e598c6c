#include "base/FileBeneath.h"
#include "base/Failure.h"
#include "base/FileTrouble.h"
#include <QFile>
#include <QScopeGuard>
#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>

namespace vantrel {

namespace {

/// Something that is no file, such as a pipe, must not hold up whoever opens it.
constexpr int FileFlags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
constexpr int FolderFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

/// Part of the names in messages; a host may send any number of characters.
constexpr qsizetype LongestShown = 200;

[[noreturn]] void FailFor(const QString& name, const QString& why,
                          int number = FailureNumber::PathNotFound)
{
    throw Failure(number, QStringLiteral("\"%1\" %2").arg(name.left(LongestShown), why));
}

[[noreturn]] void FailFor(const QString& name, int error)
{
    switch (error) {
    case ENOENT:
        FailFor(name, QStringLiteral("is not in the folder"), FailureNumber::FileNotFound);
    case ELOOP:
        FailFor(name, QStringLiteral("leads over a link"));
    case EXDEV:
        FailFor(name, QStringLiteral("leads out of the folder"));
    default:
        FailFor(name, QStringLiteral("cannot be opened: ") +
                          QString::fromStdString(std::generic_category().message(error)));
    }
}

void CheckName(const QString& name)
{
    if (name.isEmpty())
        FailFor(name, QStringLiteral("is no name of a file"));
    if (name.size() > PATH_MAX)
        FailFor(name, ENAMETOOLONG);
    if (name.contains(QChar(QChar::Null)))
        FailFor(name, QStringLiteral("has a character that no name has"));
    if (name.startsWith(QLatin1Char('/')))
        FailFor(name, QStringLiteral("is no name within the folder, but a whole path"));
    const auto parts = QStringView(name).split(QLatin1Char('/'));
    if (std::any_of(parts.begin(), parts.end(),
                    [](QStringView part) { return part == QLatin1StringView(".."); }))
        FailFor(name, QStringLiteral("leads out of the folder"));
}

/// @return a descriptor, or -1 with `errno`
int OpenAtOnce(int folder, const QByteArray& name)
{
    open_how how = {};
    how.flags = FileFlags;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS;
    return static_cast<int>(::syscall(SYS_openat2, folder, name.constData(), &how, sizeof how));
}

bool IsLink(int folder, const QByteArray& part)
{
    struct stat found = {};
    return ::fstatat(folder, part.constData(), &found, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISLNK(found.st_mode);
}

/// @return a descriptor, or -1 with `errno`
int OpenStepByStep(int folder, const QByteArray& name)
{
    const QList<QByteArray> parts = name.split('/');
    int at = ::fcntl(folder, F_DUPFD_CLOEXEC, 0);
    for (qsizetype i = 0; i < parts.size() && at >= 0; ++i) {
        // As in any path, nothing stands for the folder itself.
        const QByteArray part = parts[i].isEmpty() ? QByteArrayLiteral(".") : parts[i];
        const int flags = (i + 1 < parts.size() ? FolderFlags : FileFlags) | O_NOFOLLOW;
        const int next = ::openat(at, part.constData(), flags);
        // A link in place of a folder is reported as no folder.
        const int error = next < 0 && errno == ENOTDIR && IsLink(at, part) ? ELOOP : errno;
        ::close(at);
        errno = error;
        at = next;
    }
    return at;
}

/// Whether the system does not offer a call, or does not let this program use it.
bool IsMissingCall(int error)
{
    return error == ENOSYS || error == EPERM || error == EINVAL || error == E2BIG;
}

} // namespace

FileBeneath::FileBeneath(const QString& folder, const QString& name, Way preferred)
{
    CheckName(name);
    const int root = ::open(QFile::encodeName(folder).constData(), FolderFlags);
    if (root < 0)
        throw Failure(FailureNumber::PathNotFound,
                      QStringLiteral("The folder cannot be opened: ") + FileTrouble(folder, errno));
    const auto closeRoot = qScopeGuard([root] { ::close(root); });
    const QByteArray encoded = QFile::encodeName(name);
    bool isTried = false;
    if (preferred == Way::AtOnce) {
        m_descriptor = OpenAtOnce(root, encoded);
        isTried = m_descriptor >= 0 || !IsMissingCall(errno);
    }
    if (!isTried)
        m_descriptor = OpenStepByStep(root, encoded);
    if (m_descriptor < 0)
        FailFor(name, errno);
    struct stat found = {};
    if (::fstat(m_descriptor, &found) != 0 || !S_ISREG(found.st_mode)) {
        ::close(m_descriptor);
        FailFor(name, QStringLiteral("is no file"));
    }
}

FileBeneath::~FileBeneath()
{
    ::close(m_descriptor);
}

} // namespace vantrel
