#include "ports/RecordReader.h"
#include "base/Failure.h"
#include "base/HexCodes.h"
#include <utility>

namespace vantrel {

namespace {
constexpr qsizetype BufferBytes = qsizetype{64} * 1024;

/// The same whether its end has been read already or not.
QString TooLong(qsizetype most)
{
    return QStringLiteral("it is longer than %1 characters, or has no end").arg(most);
}

} // namespace

RecordReader::RecordReader(ReadBytes read, const RecordFormat& format)
    : m_read(std::move(read)), m_format(format), m_buffer(BufferBytes, Qt::Uninitialized),
      m_decoder(format.Encoding)
{
    m_cutter.SetDelimiters(format.Delimiters.DataStart, format.Delimiters.DataEnd);
}

void RecordReader::Stop(const QString& why)
{
    m_isStopped = true;
    m_cutter = RecordCutter();
    throw Failure(FailureNumber::InvalidCall,
                  QStringLiteral("Record %1: %2").arg(m_number).arg(why));
}

void RecordReader::Fill()
{
    const qsizetype count = m_read(m_buffer.data(), m_buffer.size());
    m_isAtEnd = count <= 0;
    if (!m_isAtEnd)
        m_cutter.Append(m_decoder.Decode(QByteArrayView(m_buffer).first(count)));
}

bool RecordReader::Next(const ValueSink& take)
{
    if (m_isStopped)
        return false;
    while (!m_cutter.HasRecord()) {
        const bool isTooLong = m_cutter.Text().size() > m_format.MostCharacters;
        const QString start = DecodeHexCodes(m_format.Delimiters.DataStart);
        const bool isCutOff =
            m_isAtEnd && m_cutter.Text().startsWith(start) && !m_cutter.Text().trimmed().isEmpty();
        if (isTooLong || isCutOff) {
            ++m_number;
            Stop(isTooLong ? TooLong(m_format.MostCharacters) : QStringLiteral("it has no end"));
        }
        if (m_isAtEnd)
            return false;
        Fill();
    }
    ++m_number;
    QString record = m_cutter.TakeRecord();
    if (record.size() > m_format.MostCharacters)
        Stop(TooLong(m_format.MostCharacters));
    ParseDataStream(record, m_format.Delimiters, m_format.Filters,
                    [&take](const QString& value) { take(ShownInput(value)); });
    return true;
}

} // namespace vantrel
