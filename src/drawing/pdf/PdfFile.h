#pragma once

#include <QByteArray>
#include <functional>
#include <vector>

namespace vantrel {

/// A PDF in the making: numbered objects one behind the other, and the table that finds them. It
/// goes out piece by piece and is never held as a whole here.
class PdfFile
{
public:
    /// Receives the bytes as they are made; returns false when it cannot take them.
    using Sink = std::function<bool(const char* bytes, std::size_t count)>;

    explicit PdfFile(Sink sink);

    /// Takes a number for an object that others refer to before it is written.
    int Reserve();
    void Write(int object, const QByteArray& body);
    int Add(const QByteArray& body);
    /// A stream of bytes that are packed already, or need not be.
    /// @param entries  of its dictionary, without its length
    int AddStream(const QByteArray& entries, QByteArrayView bytes);
    /// Writes the table. All numbers must have their objects by then.
    /// @return false if the sink did not take it all
    bool End(int catalog, int information);

private:
    void Begin(int object);
    void Put(QByteArrayView bytes);

    Sink m_sink;
    bool m_isTaken = true;
    qint64 m_length = 0;
    /// Where each object begins, from number 1 on.
    std::vector<qint64> m_begins;
};

} // namespace vantrel
