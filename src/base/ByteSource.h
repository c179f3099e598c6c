#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

namespace vantrel {

/// Reads up to so many bytes to a place in memory. @return how many it read, 0 at the end only.
/// Fails if it cannot read
using ReadBytes = std::function<qsizetype(char* to, qsizetype most)>;

/// Reads these bytes, piece by piece.
ReadBytes ReadFrom(const QByteArray& bytes);

/// The bytes of a file, or of what another program sends, read piece by piece as they come.
class ByteSource
{
public:
    /// @param path  "-" is standard input. Fails with `FileNotFound` and the system's reason
    explicit ByteSource(const QString& path);
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    ~ByteSource();

    /// Waits for bytes and reads them like `ReadBytes`. Fails with `InvalidCall` and the system's
    /// reason.
    qsizetype Read(char* to, qsizetype most);
    /// The open file, to wait for bytes.
    int Descriptor() const { return m_descriptor; }

private:
    QString m_name;
    int m_descriptor;
};

} // namespace vantrel
