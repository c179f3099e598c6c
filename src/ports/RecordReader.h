#pragma once

#include "base/ByteSource.h"
#include "base/InputText.h"
#include "ports/FramedValues.h"
#include "ports/Framing.h"
#include "ports/RecordCutter.h"

namespace vantrel {

/// How the records of a file are written: as hosts send them.
struct RecordFormat
{
    vantrel::Delimiters Delimiters;
    vantrel::Filters Filters;
    InputEncoding Encoding = InputEncoding::CodePage1252;
    /// A record of more characters ends the reading.
    qsizetype MostCharacters = qsizetype{16} * 1024 * 1024;
};

/// Reads the records of a file one after the other by the rules for what one connection sends: what
/// stands between two records is dropped, and bytes that are no characters of the encoding become
/// U+FFFD. Takes linear time, and memory for one record.
class RecordReader
{
public:
    RecordReader(ReadBytes read, const RecordFormat& format);

    /// Reads the next record and passes its values to `take`. Fails with `InvalidCall` and a text
    /// such as "Record 7: ..." if it is too long or cut off; the reading has ended then.
    /// @return false at the end
    bool Next(const ValueSink& take);
    /// The number of the record read last, counted from 1.
    qint64 Number() const { return m_number; }

private:
    void Fill();
    [[noreturn]] void Stop(const QString& why);

    ReadBytes m_read;
    RecordFormat m_format;
    QByteArray m_buffer;
    InputDecoder m_decoder;
    RecordCutter m_cutter;
    bool m_isAtEnd = false;
    bool m_isStopped = false;
    qint64 m_number = 0;
};

} // namespace vantrel
