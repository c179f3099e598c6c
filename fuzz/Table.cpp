#include "FuzzInput.h"
#include "base/Failure.h"
#include "ports/TableReader.h"
#include <algorithm>
#include <vector>

// For a table file of any bytes in pieces of any size: the rows and failures are the same as in one
// piece, lines rise, limits hold, and rows that are written again by the rules are read as the same
// values.

namespace {

using namespace vantrel;

struct Outcome
{
    qint64 Line = 0;
    QStringList Values;
    QString Fault;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

std::vector<Outcome> RowsOf(const QByteArray& bytes, const TableFormat& format, qsizetype piece)
{
    std::vector<Outcome> rows;
    qsizetype at = 0;
    TableReader reader(
        [&](char* to, qsizetype most) {
            const qsizetype count = std::min({piece, most, bytes.size() - at});
            std::copy_n(bytes.constData() + at, count, to);
            at += count;
            return count;
        },
        format);
    for (;;) {
        Outcome row;
        try {
            if (!reader.Next(row.Values))
                return rows;
        } catch (const Failure& failure) {
            row.Fault = failure.Text();
        }
        row.Line = reader.Line();
        rows.push_back(row);
    }
}

QByteArray Quoted(const QStringList& values, char separator)
{
    QByteArray row;
    for (const QString& value : values)
        row += (row.isEmpty() ? "" : QByteArray(1, separator)) + '"' +
               value.toUtf8().replace("\"", "\"\"") + '"';
    return row + "\r\n";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const std::uint8_t choice = input.Byte();
    TableFormat format;
    format.Separator = (choice & 1U) != 0 ? '\t' : ',';
    format.Encoding = (choice & 2U) != 0 ? InputEncoding::CodePage1252 : InputEncoding::Utf8;
    if ((choice & 4U) != 0) {
        format.MostBytes = 16;
        format.MostValues = 4;
    }
    const qsizetype piece = 1 + input.Byte();
    const QByteArray bytes = input.Rest();

    const std::vector<Outcome> rows = RowsOf(bytes, format, bytes.size() + 1);
    fuzz::Require(rows == RowsOf(bytes, format, piece), "rows are the same in pieces");
    QByteArray again;
    std::vector<QStringList> expected;
    qint64 line = 0;
    for (const Outcome& row : rows) {
        fuzz::Require(row.Line > line, "each row begins on a later line");
        line = row.Line;
        fuzz::Require(row.Values.size() <= format.MostValues, "a row has no more values");
        if (row.Values.isEmpty())
            continue;
        again += Quoted(row.Values, format.Separator);
        expected.push_back(row.Values);
    }
    const TableFormat usual{.Separator = format.Separator};
    const std::vector<Outcome> readAgain = RowsOf(again, usual, again.size() + 1);
    fuzz::Require(readAgain.size() == expected.size(), "as many rows are read again");
    for (std::size_t i = 0; i < expected.size(); ++i)
        fuzz::Require(readAgain[i].Values == expected[i], "values are read as they were written");
    return 0;
}
