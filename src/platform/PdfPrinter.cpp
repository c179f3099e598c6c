#include "platform/PdfPrinter.h"
#include "platform/Failure.h"
#include "platform/PlaceFile.h"
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QUuid>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vantrel {

namespace {

constexpr QLatin1StringView FileBeginning{"card-"};
constexpr QLatin1StringView FileEnding{".pdf"};
constexpr int FewestDigits = 6;
/// Measured: a card with a background written in one piece costs the file system a fifth more.
constexpr qsizetype PieceBytes = 32768;

[[noreturn]] void FailWith(int error)
{
    throw Failure(FailureNumber::PrinterError,
                  QStringLiteral("Printer error: ") +
                      QString::fromStdString(std::generic_category().message(error)));
}

QString FileNameOf(qint64 number)
{
    return FileBeginning + QStringLiteral("%1").arg(number, FewestDigits, 10, QLatin1Char('0')) +
           FileEnding;
}

/// @return the number in a card file's name, 0 for any other name
qint64 NumberOf(const QString& fileName)
{
    if (!fileName.startsWith(FileBeginning) || !fileName.endsWith(FileEnding))
        return 0;
    const QString digits = fileName.sliced(
        FileBeginning.size(), fileName.size() - FileBeginning.size() - FileEnding.size());
    const qint64 number = digits.toLongLong();
    return FileNameOf(number) == fileName ? number : 0;
}

qint64 HighestNumberIn(const QString& folder)
{
    qint64 highest = 0;
    for (QDirIterator files(folder, QDir::Files | QDir::Hidden | QDir::System); files.hasNext();) {
        files.next();
        highest = std::max(highest, NumberOf(files.fileName()));
    }
    return highest;
}

/// A file under a name that nobody looks for; it goes away unless it was put in place.
class UnnamedFile
{
public:
    explicit UnnamedFile(const QString& folder)
        : m_path(folder + QStringLiteral("/.card-") +
                 QUuid::createUuid().toString(QUuid::WithoutBraces) + QStringLiteral(".part"))
    {
        m_descriptor = ::open(QFile::encodeName(m_path).constData(),
                              O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (m_descriptor < 0)
            FailWith(errno);
    }
    UnnamedFile(const UnnamedFile&) = delete;
    UnnamedFile& operator=(const UnnamedFile&) = delete;
    ~UnnamedFile()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
        if (!m_path.isEmpty())
            ::unlink(QFile::encodeName(m_path).constData());
    }

    /// Writes all and closes: some disks tell only then that they are full.
    void WriteWhole(const QByteArray& bytes)
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
        if (::close(std::exchange(m_descriptor, -1)) != 0)
            FailWith(errno);
    }

    /// @return false where a file of that name is there already
    bool PutInPlace(const QString& name)
    {
        switch (PlaceFile(m_path, name)) {
        case PlaceResult::Placed:
            m_path.clear();
            return true;
        case PlaceResult::NameTaken:
            return false;
        case PlaceResult::Failed:
            break;
        }
        FailWith(errno);
    }

private:
    QString m_path;
    int m_descriptor = -1;
};

} // namespace

void PdfPrinter::Deliver(const QByteArray& pdf)
{
    if (!QDir().mkpath(m_folder))
        FailWith(ENOTDIR);
    UnnamedFile file(m_folder);
    file.WriteWhole(pdf);
    if (m_lastNumber < 0)
        m_lastNumber = HighestNumberIn(m_folder);
    qint64 number = m_lastNumber + 1;
    while (!file.PutInPlace(m_folder + QLatin1Char('/') + FileNameOf(number)))
        ++number;
    m_lastNumber = number;
}

} // namespace vantrel
