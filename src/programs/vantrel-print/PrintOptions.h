#pragma once

#include "station/batch/Batch.h"
#include "station/batch/RowSource.h"
#include <optional>

namespace vantrel::print {

/// Where the cards of a run go.
enum class Place { Folder, Book, Printer };

/// What a command line asks for.
struct PrintOptions
{
    /// The program folder.
    QString Folder;
    BatchTarget Target;
    /// The file with the rows; "-" is standard input.
    QString File = QStringLiteral("-");
    enum class Format { Csv, Tsv, Records };
    Format Written = Format::Csv;
    bool HasHeader = false;
    QStringList Columns;
    /// Nothing for what is usual for the format.
    std::optional<InputEncoding> Encoding;
    vantrel::print::Place Place = Place::Folder;
    /// The folder, the file or the printer; an empty folder stands for the usual one.
    QString PlaceName;
    /// Folder of the pictures that values name; empty for none.
    QString Images;
    /// The first row that is printed, from 1, and how many are at most.
    qint64 First = 1;
    std::optional<qint64> Count;
    int Workers = 1;
    bool IsDryRun = false;
    bool IsQuiet = false;
};

/// The result of parsing a command line: options, a text to print, or a mistake in one line.
struct Request
{
    std::optional<PrintOptions> Options;
    QString Help;
    QString Mistake;
};

/// Parses a command line, whose first word is the program's name. Never fails.
Request ReadCommandLine(const QStringList& line);

} // namespace vantrel::print
