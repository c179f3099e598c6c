#include "base/ByteSource.h"
#include "base/Failure.h"
#include "base/FileTrouble.h"
#include <QFile>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace vantrel {

namespace {

constexpr QLatin1StringView StandardInput{"-"};

[[noreturn]] void FailWith(int number, const QString& name, int error)
{
    throw Failure(number, FileTrouble(name, error));
}

} // namespace

ReadBytes ReadFrom(const QByteArray& bytes)
{
    return [bytes, at = qsizetype{0}](char* to, qsizetype most) mutable {
        const qsizetype count = std::min(most, bytes.size() - at);
        std::copy_n(bytes.constData() + at, count, to);
        at += count;
        return count;
    };
}

ByteSource::ByteSource(const QString& path)
    : m_name(path == StandardInput ? QStringLiteral("standard input") : path),
      m_descriptor(path == StandardInput
                       ? STDIN_FILENO
                       : ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC))
{
    if (m_descriptor < 0)
        FailWith(FailureNumber::FileNotFound, m_name, errno);
}

ByteSource::~ByteSource()
{
    if (m_descriptor != STDIN_FILENO)
        ::close(m_descriptor);
}

qsizetype ByteSource::Read(char* to, qsizetype most)
{
    for (;;) {
        const ssize_t count = ::read(m_descriptor, to, static_cast<std::size_t>(most));
        if (count >= 0)
            return count;
        if (errno != EINTR)
            FailWith(FailureNumber::InvalidCall, m_name, errno);
    }
}

} // namespace vantrel
