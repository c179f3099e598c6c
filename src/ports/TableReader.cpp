#include "ports/TableReader.h"
#include "base/CodePage.h"
#include "base/Failure.h"
#include <QStringDecoder>
#include <QUtf8StringView>
#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr qsizetype BufferBytes = qsizetype{64} * 1024;
/// Memory of a long row beyond this is given back.
constexpr qsizetype BytesKept = qsizetype{1} << 20;
constexpr QByteArrayView ByteOrderMark("\xEF\xBB\xBF");

bool IsLineEnd(char byte)
{
    return byte == '\r' || byte == '\n';
}

bool IsUtf8(QByteArrayView bytes)
{
    return QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8();
}

/// Unlike Qt's own conversion it keeps a byte order mark at the beginning of a value.
QString FromUtf8(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    return decoder.decode(bytes);
}

/// The length of the first line with its line end.
qsizetype FirstLine(QByteArrayView bytes)
{
    const auto length = std::find_if(bytes.begin(), bytes.end(), IsLineEnd) - bytes.begin();
    if (length == bytes.size())
        return length;
    return length + (bytes.sliced(length).startsWith("\r\n") ? 2 : 1);
}

qint64 LineEndsIn(QByteArrayView bytes)
{
    qint64 count = 0;
    while (!bytes.isEmpty()) {
        const qsizetype length = FirstLine(bytes);
        count += IsLineEnd(bytes[length - 1]) ? 1 : 0;
        bytes = bytes.sliced(length);
    }
    return count;
}

/// The number of lines of a value before the one that is no UTF-8.
qint64 LineEndsBeforeFault(QByteArrayView bytes)
{
    qint64 count = 0;
    for (qsizetype length = FirstLine(bytes); IsUtf8(bytes.first(length)) && length < bytes.size();
         length = FirstLine(bytes)) {
        bytes = bytes.sliced(length);
        ++count;
    }
    return count;
}

} // namespace

TableReader::TableReader(ReadBytes read, const TableFormat& format)
    : m_read(std::move(read)), m_format(format), m_buffer(BufferBytes, Qt::Uninitialized)
{
    // A source may give single bytes.
    while (m_format.Encoding == InputEncoding::Utf8 && m_filled < ByteOrderMark.size()) {
        const qsizetype count = m_read(m_buffer.data() + m_filled, BufferBytes - m_filled);
        if (count <= 0)
            break;
        m_filled += count;
    }
    const QByteArrayView begin = QByteArrayView(m_buffer).first(m_filled);
    if (m_format.Encoding == InputEncoding::Utf8 && begin.startsWith(ByteOrderMark))
        m_at = ByteOrderMark.size();
}

bool TableReader::Next(QStringList& values)
{
    values.clear();
    while (!m_hasRow) {
        if (m_isStopped || !ReadRow()) {
            m_isStopped = true;
            return false;
        }
        // Empty lines wait until a row follows.
        m_hasRow = !m_row.Ends.empty() || !m_row.Fault.isEmpty();
        m_emptyLines += m_hasRow ? 0 : 1;
    }
    m_rowLine = m_row.Line - m_emptyLines;
    if (m_emptyLines > 0) {
        --m_emptyLines;
        return true;
    }
    m_hasRow = false;
    if (m_row.Fault.isEmpty())
        values = Decoded();
    if (!m_row.Fault.isEmpty()) {
        values.clear();
        throw Failure(FailureNumber::InvalidCall, m_row.Fault);
    }
    return true;
}

bool TableReader::Fill()
{
    m_at = 0;
    m_filled = m_read(m_buffer.data(), m_buffer.size());
    return m_filled > 0;
}

bool TableReader::ReadRow()
{
    if (m_row.Bytes.capacity() > BytesKept)
        m_row.Bytes = QByteArray();
    m_row.Bytes.resize(0);
    m_row.Ends.clear();
    m_row.Fault.clear();
    m_row.Line = m_line;
    m_place = Place::ValueBegin;
    for (;;) {
        if (m_at == m_filled && !Fill())
            return EndFile();
        if (TakeSome())
            return true;
    }
}

bool TableReader::TakeSome()
{
    const char byte = m_buffer.at(m_at);
    if (IsLineEnd(byte))
        return TakeLineEnd(byte);
    m_isBehindReturn = false;
    if (byte == '"')
        return TakeQuote();
    if (byte == m_format.Separator && m_place != Place::InQuotes) {
        ++m_at;
        EndValue();
        return false;
    }
    if (m_place == Place::BehindQuotes)
        return Stop(m_line, "text stands behind the quote that ends a value");
    if (m_place == Place::ValueBegin)
        m_place = Place::Plain;
    TakeRun();
    return false;
}

bool TableReader::TakeQuote()
{
    switch (m_place) {
    case Place::Plain:
        return Stop(m_line, "a quote stands within a value that does not begin with one");
    case Place::InQuotes:
        m_place = Place::BehindQuotes;
        break;
    case Place::BehindQuotes:
        Append("\"", 1);
        m_place = Place::InQuotes;
        break;
    case Place::ValueBegin:
        m_quoteLine = m_line;
        m_place = Place::InQuotes;
        break;
    }
    ++m_at;
    return false;
}

bool TableReader::TakeLineEnd(char byte)
{
    ++m_at;
    const bool isSecond = m_isBehindReturn && byte == '\n';
    m_isBehindReturn = byte == '\r';
    m_line += isSecond ? 0 : 1;
    if (m_place == Place::InQuotes) {
        Append(&byte, 1);
        return false;
    }
    // The second half of the end of the row before.
    if (isSecond)
        return false;
    if (m_place != Place::ValueBegin || !m_row.Ends.empty())
        EndValue();
    return true;
}

void TableReader::TakeRun()
{
    const char* const begin = m_buffer.constData() + m_at;
    const char* const end = m_buffer.constData() + m_filled;
    const bool endsAtSeparator = m_place == Place::Plain;
    const char separator = m_format.Separator;
    const char* const last = std::find_if(begin, end, [=](char byte) {
        return byte == '"' || IsLineEnd(byte) || (endsAtSeparator && byte == separator);
    });
    Append(begin, last - begin);
    m_at += last - begin;
}

bool TableReader::EndFile()
{
    if (m_place == Place::InQuotes)
        return Stop(m_quoteLine, "the quote that begins a value here has no end");
    if (m_place == Place::ValueBegin && m_row.Ends.empty())
        return !m_row.Fault.isEmpty();
    EndValue();
    return true;
}

void TableReader::Append(const char* bytes, qsizetype count)
{
    if (!m_row.Fault.isEmpty())
        return;
    if (m_row.Bytes.size() + count > m_format.MostBytes)
        Refuse(m_row.Line,
               QStringLiteral("the row is longer than %1 bytes").arg(m_format.MostBytes));
    else
        m_row.Bytes.append(bytes, count);
}

void TableReader::EndValue()
{
    m_place = Place::ValueBegin;
    if (!m_row.Fault.isEmpty())
        return;
    if (static_cast<qsizetype>(m_row.Ends.size()) == m_format.MostValues)
        Refuse(m_row.Line,
               QStringLiteral("the row has more than %1 values").arg(m_format.MostValues));
    else
        m_row.Ends.push_back(m_row.Bytes.size());
}

void TableReader::Refuse(qint64 line, const QString& why)
{
    // What is found first is told, and nothing more of the row is kept.
    if (!m_row.Fault.isEmpty())
        return;
    m_row.Fault = QStringLiteral("Line %1: %2").arg(line).arg(why);
    m_row.Bytes = QByteArray();
    m_row.Ends.clear();
}

bool TableReader::Stop(qint64 line, const char* why)
{
    Refuse(line, QString::fromLatin1(why));
    m_isStopped = true;
    return true;
}

QStringList TableReader::Decoded()
{
    QStringList values;
    values.reserve(static_cast<qsizetype>(m_row.Ends.size()));
    qint64 line = m_row.Line;
    qsizetype begin = 0;
    for (const qsizetype end : m_row.Ends) {
        const QByteArrayView value = QByteArrayView(m_row.Bytes).sliced(begin, end - begin);
        begin = end;
        if (m_format.Encoding == InputEncoding::CodePage1252) {
            values.append(FromCodePage(value));
        } else if (IsUtf8(value)) {
            values.append(FromUtf8(value));
            line += LineEndsIn(value);
        } else {
            Refuse(line + LineEndsBeforeFault(value), QStringLiteral("bytes that are no UTF-8"));
            return {};
        }
    }
    return values;
}

} // namespace vantrel
