#pragma once

#include <QByteArray>
#include <deque>
#include <functional>

namespace vantrel {

/// Writes a PDF: numbered objects one after the other, then the table of their offsets. The bytes
/// are passed to a sink and never held as a whole.
class PdfFile
{
public:
    /// Receives the bytes in order; returns false if it cannot store them, or throws why.
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
    /// Whether the sink has taken all bytes so far. Once it has not, it is given no more.
    bool IsTaken() const { return m_isTaken; }
    /// Writes the table of offsets. Every reserved number must have been written by then.
    /// @return false if the sink refused any bytes
    bool End(int catalog, int information);
    /// Like `End`, but writes the table as a compressed stream, for files of many objects and of
    /// any length. A reserved number that was not written names no object then.
    bool EndCompact(int catalog, int information);

private:
    void Begin(int object);
    void Put(QByteArrayView bytes);
    /// The entries that a reader needs to begin reading.
    QByteArray TrailerEntries(int catalog, int information) const;
    void PutTableBegin(qint64 offset);

    Sink m_sink;
    bool m_isTaken = true;
    qint64 m_length = 0;
    /// Offset of each object, from number 1 on.
    std::deque<qint64> m_begins;
};

} // namespace vantrel
