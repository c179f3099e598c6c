#include "FuzzInput.h"
#include "base/Failure.h"
#include "station/batch/RowSource.h"
#include <algorithm>
#include <cstring>
#include <vector>

// For a file of rows of any bytes, with a header, chosen columns or records as hosts send them: the
// rows are the same in pieces of any size, each row of a table has as many values as its first, and
// chosen columns hold the values of their names.

namespace {

using namespace vantrel;

struct Outcome
{
    qint64 Number = 0;
    qint64 Line = 0;
    QStringList Values;
    QString Fault;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

struct Run
{
    QStringList Names;
    QString Refusal;
    std::vector<Outcome> Rows;

    friend bool operator==(const Run&, const Run&) = default;
};

void ReadAll(RowSource& source, std::vector<Outcome>& rows)
{
    for (;;) {
        Outcome outcome;
        BatchRow row;
        try {
            if (!source.Next(row))
                return;
            outcome.Values = row.Values;
            outcome.Line = row.Line;
        } catch (const Failure& failure) {
            outcome.Fault = failure.Text();
        }
        outcome.Number = source.Number();
        rows.push_back(outcome);
        if (!outcome.Fault.isEmpty() && !source.CanGoOn())
            return;
    }
}

Run RunOf(const QByteArray& bytes, const RowFormat& format, qsizetype piece)
{
    Run run;
    qsizetype at = 0;
    const auto read = [&](char* to, qsizetype most) {
        const qsizetype count = std::min({piece, most, bytes.size() - at});
        std::memcpy(to, bytes.constData() + at, static_cast<std::size_t>(count));
        at += count;
        return count;
    };
    try {
        RowSource source(read, format);
        run.Names = source.Names();
        ReadAll(source, run.Rows);
    } catch (const Failure& failure) {
        run.Refusal = failure.Text();
    }
    return run;
}

/// The first `most` names of a list, as somebody would choose them.
QStringList ChosenOf(const QString& list)
{
    try {
        return ColumnNames(list);
    } catch (const Failure&) {
        return {};
    }
}

void CheckTable(const Run& run, const RowFormat& format)
{
    qsizetype width = format.Columns.isEmpty() ? run.Names.size() : format.Columns.size();
    qint64 number = 0;
    for (const Outcome& row : run.Rows) {
        fuzz::Require(row.Number == number + 1, "rows are counted");
        number = row.Number;
        if (!row.Fault.isEmpty())
            continue;
        if (width == 0)
            width = row.Values.size();
        fuzz::Require(row.Values.size() == width, "each row has as many values as the first");
    }
}

/// Chosen columns are the same values as those of all columns at the places of their names.
void CompareWithAll(const QByteArray& bytes, const Run& chosen, const RowFormat& format)
{
    RowFormat all = format;
    all.Columns.clear();
    const Run run = RunOf(bytes, all, bytes.size() + 1);
    fuzz::Require(run.Rows.size() == chosen.Rows.size(), "as many rows in any order of columns");
    for (std::size_t i = 0; i < run.Rows.size(); ++i) {
        for (qsizetype at = 0; at < chosen.Rows[i].Values.size(); ++at) {
            const qsizetype place = run.Names.indexOf(format.Columns.at(at));
            fuzz::Require(chosen.Rows[i].Values.at(at) == run.Rows[i].Values.at(place),
                          "a value stands in the column of its name");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const std::uint8_t choice = input.Byte();
    const qsizetype piece = 1 + input.Byte();
    RowFormat format;
    const auto encoding = (choice & 1U) != 0 ? InputEncoding::CodePage1252 : InputEncoding::Utf8;
    const bool isTable = (choice & 2U) == 0;
    if (isTable) {
        format.Written =
            TableFormat{.Separator = (choice & 4U) != 0 ? '\t' : ',', .Encoding = encoding};
        format.HasHeader = (choice & 8U) != 0;
        if ((choice & 16U) != 0) {
            format.HasHeader = true;
            format.Columns = ChosenOf(input.Line());
        }
    } else {
        const Delimiters delimiters{input.Line(), input.Line(), input.Line()};
        format.Written = RecordFormat{.Delimiters = delimiters,
                                      .Filters = {.Cr = (choice & 4U) != 0},
                                      .Encoding = encoding,
                                      .MostCharacters = 64};
    }
    const QByteArray bytes = input.Rest();
    const Run run = RunOf(bytes, format, bytes.size() + 1);
    fuzz::Require(run == RunOf(bytes, format, piece), "rows are the same in pieces");
    if (!run.Refusal.isEmpty() || !isTable)
        return 0;
    CheckTable(run, format);
    if (!format.Columns.isEmpty() && !run.Names.isEmpty())
        CompareWithAll(bytes, run, format);
    return 0;
}
