#pragma once

#include "base/UnnamedFile.h"
#include <QByteArray>
#include <QString>
#include <memory>

namespace vantrel {

/// A file of any length that is written piece by piece and gets its name when it is whole and on
/// the disk. If the object is destroyed or the program is killed before that, nothing is left under
/// the name. All failures are `PrinterError` with the system's reason.
class BookFile
{
public:
    /// @param path  its folder is created if it is missing. Fails if the file exists
    explicit BookFile(const QString& path);

    /// Whether the disk failed. Everything fails with its reason from then on.
    bool IsBroken() const { return !m_reason.isEmpty(); }
    /// Appends bytes; small pieces are collected.
    void Write(const char* bytes, std::size_t count);
    /// Puts the file in place. If the name has been taken meanwhile it fails, and may be called
    /// again when the name is free, or with another name in the same folder.
    void PutInPlace(const QString& path);

private:
    void Flush();
    /// Runs a step on the file, and remembers why it failed.
    template <typename Step>
    void OnDisk(Step&& step);

    QString m_folder;
    std::unique_ptr<UnnamedFile> m_file;
    QByteArray m_collected;
    QString m_reason;
};

} // namespace vantrel
