#include "base/UnnamedFile.h"
#include "base/Failure.h"
#include "base/FileTrouble.h"
#include <QFile>
#include <QUuid>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace vantrel {

namespace {

/// Size of one write. Writing a card with a background in a single call measured a fifth slower.
constexpr qsizetype PieceBytes = 32768;
/// An unnamed file gets its name by a link to its descriptor in this folder.
constexpr char OwnDescriptors[] = "/proc/self/fd/";

} // namespace

UnnamedFile::UnnamedFile(const QString& folder, Kind preferred) : m_folder(folder)
{
    if (preferred == Kind::Hidden || !OpenNameless(folder))
        OpenHidden(folder);
}

UnnamedFile::~UnnamedFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    if (!m_hidden.isEmpty())
        ::unlink(QFile::encodeName(m_hidden).constData());
}

void UnnamedFile::FailWith(int error) const
{
    throw Failure(FailureNumber::PrinterError,
                  QStringLiteral("Printer error: ") + FileTrouble(m_folder, error));
}

bool UnnamedFile::OpenNameless(const QString& folder)
{
    if (::access(OwnDescriptors, X_OK) != 0)
        return false;
    m_descriptor =
        ::open(QFile::encodeName(folder).constData(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0666);
    return m_descriptor >= 0;
}

void UnnamedFile::OpenHidden(const QString& folder)
{
    const QString path = folder + QStringLiteral("/.card-") +
                         QUuid::createUuid().toString(QUuid::WithoutBraces) +
                         QStringLiteral(".part");
    m_descriptor =
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (m_descriptor < 0)
        FailWith(errno);
    m_hidden = path;
}

void UnnamedFile::Write(const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count =
            ::write(m_descriptor, bytes.constData() + written,
                    static_cast<std::size_t>(std::min(PieceBytes, bytes.size() - written)));
        if (count < 0 && errno != EINTR)
            FailWith(errno);
        written += std::max<ssize_t>(count, 0);
    }
}

void UnnamedFile::BeginSync()
{
    // Only a beginning: `Sync` reports what fails.
    ::sync_file_range(m_descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
}

void UnnamedFile::Sync()
{
    while (::fdatasync(m_descriptor) != 0) {
        if (errno != EINTR)
            FailWith(errno);
    }
}

/// Some file systems report a full disk only on close; those do not support unnamed files.
void UnnamedFile::Close()
{
    if (m_descriptor >= 0 && ::close(std::exchange(m_descriptor, -1)) != 0)
        FailWith(errno);
}

PlaceResult UnnamedFile::Place(const QString& path)
{
    if (!m_hidden.isEmpty()) {
        Close();
        return PlaceFile(m_hidden, path);
    }
    const QByteArray own = OwnDescriptors + QByteArray::number(m_descriptor);
    if (::linkat(AT_FDCWD, own.constData(), AT_FDCWD, QFile::encodeName(path).constData(),
                 AT_SYMLINK_FOLLOW) == 0)
        return PlaceResult::Placed;
    return errno == EEXIST ? PlaceResult::NameTaken : PlaceResult::Failed;
}

bool UnnamedFile::PutInPlace(const QString& path)
{
    switch (Place(path)) {
    case PlaceResult::Placed:
        m_hidden.clear();
        return true;
    case PlaceResult::NameTaken:
        return false;
    case PlaceResult::Failed:
        break;
    }
    FailWith(errno);
}

} // namespace vantrel
