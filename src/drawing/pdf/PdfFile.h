#pragma once

#include <QByteArray>
#include <functional>
#include <vector>

namespace vantrel {

/// Writes a PDF: numbered objects one after the other, then the table of their offsets. The bytes
/// are passed to a sink and never held as a whole.
class PdfFile
{
public:
    /// Receives the bytes in order; returns false if it cannot store them.
    using Sink = std::function<bool(const char* bytes, std::size_t count)>;

    explicit PdfFile(Sink sink);

    /// Assigns a number to an object that is referred to before it is written.
    int Reserve();
    /// Writes the object of a reserved number.
    void Write(int object, const QByteArray& body);
    /// Writes an object. @return its number
    int Add(const QByteArray& body);
    /// Writes an object with a stream; the bytes are written unchanged.
    /// @param entries  entries of its dictionary except its length
    /// @return the object's number
    int AddStream(const QByteArray& entries, QByteArrayView bytes);
    /// Writes the table of offsets. Every reserved number must have been written by then.
    /// @return false if the sink refused any bytes
    bool End(int catalog, int information);

private:
    void Begin(int object);
    void Put(QByteArrayView bytes);

    Sink m_sink;
    bool m_isTaken = true;
    qint64 m_length = 0;
    /// Offset of each object, from number 1 on.
    std::vector<qint64> m_begins;
};

} // namespace vantrel
