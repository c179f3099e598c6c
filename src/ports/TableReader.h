#pragma once

#include "base/ByteSource.h"
#include "base/InputText.h"
#include <QStringList>
#include <vector>

namespace vantrel {

/// How the rows of a table file are written.
struct TableFormat
{
    char Separator = ',';
    InputEncoding Encoding = InputEncoding::Utf8;
    /// A row of more bytes, or of more values, is refused.
    qsizetype MostBytes = qsizetype{16} * 1024 * 1024;
    qsizetype MostValues = 65'536;
};

/// Reads the rows of a file of values by the rules of RFC 4180: a value in quotes may contain
/// separators, line ends and doubled quotes. A line ends with a carriage return, a line feed or
/// both together. Rows may have any number of values. An empty line is a row without values, except
/// at the end of the file, where empty lines are dropped. The byte order mark of UTF-8 at the
/// beginning is dropped. Takes linear time and memory for one row, whatever comes.
///
/// Rows are refused with `InvalidCall` and a text such as "Line 7: ...", which names the line where
/// the row begins, or the one that holds the fault. After a row that is too long or has bytes that
/// are no UTF-8, the next call of `Next` goes on with the next row. A quote in a wrong place leaves
/// open where the next row begins, so it ends the reading: no values may be taken for others.
class TableReader
{
public:
    /// Reads the first bytes.
    TableReader(ReadBytes read, const TableFormat& format);

    /// Reads the next row. @return false at the end, and after a failure that ends the reading
    bool Next(QStringList& values);
    /// The line where the row read last begins, counted from 1.
    qint64 Line() const { return m_rowLine; }
    /// Whether `Next` can go on after a failure.
    bool CanGoOn() const { return !m_isStopped; }

private:
    enum class Place { ValueBegin, Plain, InQuotes, BehindQuotes };

    /// A row as bytes, and what is wrong with it.
    struct Row
    {
        qint64 Line = 0;
        QByteArray Bytes;
        /// Where each value ends.
        std::vector<qsizetype> Ends;
        QString Fault;
    };

    /// Reads a row into `m_row`. @return false if the file has ended before
    bool ReadRow();
    bool Fill();
    /// Takes the next byte, or several that belong to a value. @return whether the row has ended
    bool TakeSome();
    bool TakeLineEnd(char byte);
    bool TakeQuote();
    void TakeRun();
    bool EndFile();
    void Append(const char* bytes, qsizetype count);
    void EndValue();
    void Refuse(qint64 line, const QString& why);
    /// Refuses the row and ends the reading.
    bool Stop(qint64 line, const char* why);
    QStringList Decoded();

    ReadBytes m_read;
    TableFormat m_format;
    QByteArray m_buffer;
    qsizetype m_at = 0;
    qsizetype m_filled = 0;
    bool m_isStopped = false;

    Place m_place = Place::ValueBegin;
    /// The line of the next byte, and whether a carriage return stands before that byte.
    qint64 m_line = 1;
    bool m_isBehindReturn = false;
    /// Where the last value in quotes begins.
    qint64 m_quoteLine = 0;
    Row m_row;
    /// Whether `m_row` is still to be returned, and how many empty lines before it.
    bool m_hasRow = false;
    qint64 m_emptyLines = 0;
    qint64 m_rowLine = 0;
};

} // namespace vantrel
