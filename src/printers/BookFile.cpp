#include "printers/BookFile.h"
#include "base/Failure.h"
#include "base/FolderSync.h"
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr qsizetype CollectedBytes = qsizetype{64} * 1024;

[[noreturn]] void FailTaken(const QString& path)
{
    throw Failure(FailureNumber::PrinterError,
                  QStringLiteral("Printer error: there is already a file %1").arg(path));
}

} // namespace

BookFile::BookFile(const QString& path) : m_folder(QFileInfo(path).absolutePath())
{
    if (const QFileInfo present(path); present.exists() || present.isSymLink())
        FailTaken(path);
    MakeFolderDurably(m_folder);
    m_file = std::make_unique<UnnamedFile>(m_folder);
    m_collected.reserve(CollectedBytes);
}

void BookFile::Write(const char* bytes, std::size_t count)
{
    QByteArrayView rest(bytes, static_cast<qsizetype>(count));
    while (!rest.isEmpty()) {
        const qsizetype room = CollectedBytes - m_collected.size();
        const QByteArrayView piece = rest.first(std::min(room, rest.size()));
        m_collected.append(piece);
        rest = rest.sliced(piece.size());
        if (m_collected.size() == CollectedBytes)
            Flush();
    }
}

template <typename Step>
void BookFile::OnDisk(Step&& step)
{
    if (IsBroken())
        throw Failure(FailureNumber::PrinterError, m_reason);
    try {
        std::forward<Step>(step)();
    } catch (const Failure& failure) {
        m_reason = failure.Text();
        throw;
    }
}

void BookFile::Flush()
{
    OnDisk([this] { m_file->Write(m_collected); });
    m_collected.resize(0);
}

void BookFile::PutInPlace(const QString& path)
{
    Flush();
    const QString name = m_folder + QLatin1Char('/') + QFileInfo(path).fileName();
    bool isPlaced = false;
    OnDisk([&] {
        m_file->Sync();
        isPlaced = m_file->PutInPlace(name);
    });
    if (!isPlaced)
        FailTaken(path);
    try {
        OnDisk([this] { SyncFolder(m_folder); });
    } catch (const Failure&) {
        // Cards that are told as failed may be printed again.
        QFile::remove(name);
        throw;
    }
}

} // namespace vantrel
