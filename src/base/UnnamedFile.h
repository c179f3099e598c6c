#pragma once

#include "base/PlaceFile.h"
#include <QByteArray>

namespace vantrel {

/// A file in the making, which nobody sees before it is put in place; given up before, nothing of
/// it is left. All that fails fails with `PrinterError`.
class UnnamedFile
{
public:
    /// File systems that know no file without a name get one under a hidden name, which a program
    /// that is killed leaves behind.
    enum class Kind { Nameless, Hidden };

    /// @param preferred  `Hidden` for tests
    explicit UnnamedFile(const QString& folder, Kind preferred = Kind::Nameless);
    UnnamedFile(const UnnamedFile&) = delete;
    UnnamedFile& operator=(const UnnamedFile&) = delete;
    ~UnnamedFile();

    void Write(const QByteArray& bytes);
    /// @param path  in the folder it was opened in
    /// @return false where a file of that name is there already; another name may be tried then
    bool PutInPlace(const QString& path);

private:
    bool OpenNameless(const QString& folder);
    void OpenHidden(const QString& folder);
    void Close();
    PlaceResult Place(const QString& path);

    /// The hidden name; empty for a nameless file.
    QString m_hidden;
    int m_descriptor = -1;
};

} // namespace vantrel
