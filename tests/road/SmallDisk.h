#pragma once

#include <QByteArray>
#include <QTemporaryDir>

namespace vantrel::test {

/// A file system of a few MiB that only this process and its children see; while it lives,
/// temporary folders are made on it. Where the machine does not allow mounts, there is no such
/// disk.
class SmallDisk
{
public:
    explicit SmallDisk(int mebibytes);
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk();

    bool IsThere() const { return m_mounted; }
    /// Fills it except for so many bytes.
    void FillUpTo(qint64 bytesLeft) const;
    void MakeRoom() const;

private:
    QByteArray Filler() const;

    QTemporaryDir m_place;
    QByteArray m_temporaryBefore;
    bool m_mounted = false;
};

} // namespace vantrel::test
