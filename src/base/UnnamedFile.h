#pragma once

#include "base/PlaceFile.h"
#include <QByteArray>

namespace vantrel {

/// A new file that stays invisible to others until it is complete and put in place. If the object
/// is destroyed before that, nothing of the file is left. All failures are `PrinterError`
/// and name the folder.
class UnnamedFile
{
public:
    /// `Hidden` uses a temporary file with a hidden name, for file systems that do not support
    /// unnamed files. If the program is killed, that file is left behind.
    enum class Kind { Nameless, Hidden };

    /// @param preferred  `Hidden` for tests
    explicit UnnamedFile(const QString& folder, Kind preferred = Kind::Nameless);
    UnnamedFile(const UnnamedFile&) = delete;
    UnnamedFile& operator=(const UnnamedFile&) = delete;
    ~UnnamedFile();

    /// Appends bytes.
    void Write(const QByteArray& bytes);
    /// Begins to bring the bytes to the disk, so that the `Sync` of many files takes less time.
    void BeginSync();
    /// Waits until all bytes written so far are on the disk. After a failure the file is of no use.
    void Sync();
    /// Gives the file its final name without replacing an existing file.
    /// @param path  in the folder that was passed to the constructor
    /// @return false if a file of that name exists; another name may then be tried
    bool PutInPlace(const QString& path);

private:
    [[noreturn]] void FailWith(int error) const;
    bool OpenNameless(const QString& folder);
    void OpenHidden(const QString& folder);
    void Close();
    PlaceResult Place(const QString& path);

    QString m_folder;
    /// The hidden name; empty for an unnamed file.
    QString m_hidden;
    int m_descriptor = -1;
};

} // namespace vantrel
