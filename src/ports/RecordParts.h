#pragma once

#include "base/InputText.h"
#include "ports/Framing.h"
#include <optional>
#include <vector>

namespace vantrel {

/// What framing made of a character of a record.
enum class RecordPart {
    /// It stands in a value.
    Value,
    /// A start delimiter. One that is set as a code stands in the first value too.
    Start,
    Separator,
    End,
    /// Removed by a filter, or a blank at an end of a value.
    Filtered,
    /// Before the start or behind the end of the record.
    Dropped,
};
inline constexpr int RecordPartCount = 6;

/// The name of a part for operators, such as "separator".
QString NameOf(RecordPart part);

/// How a record was taken apart.
enum class RecordCut {
    /// Between its delimiters, as what hosts send.
    Framed,
    /// As a whole, as records that are printed again from those that were kept.
    Whole,
};

/// Characters beside each other that framing made the same of.
struct RecordPiece
{
    RecordPart Part = RecordPart::Dropped;
    /// The value that they stand in, from 1; 0 for none.
    int Value = 0;
    QByteArray Bytes;
    /// The characters as they came, before any filter.
    QString Text;
};

/// What framing makes of each byte at the beginning of a record.
/// @param most  the number of characters that are told at most. Blanks before the last of them may
/// count as blanks at the end of a value
/// @return the pieces in their order; nothing for `Framed` if there is no record between delimiters
std::optional<std::vector<RecordPiece>>
PiecesOfRecord(const QByteArray& raw, InputEncoding encoding, const Delimiters& delimiters,
               const Filters& filters, RecordCut cut, qsizetype most);

} // namespace vantrel
