#include "ports/RecordParts.h"
#include "FuzzFilters.h"
#include "FuzzInput.h"
#include "base/Failure.h"
#include <algorithm>

// For any delimiters, filters and bytes: the parts of a record are its bytes in their order, and
// the values that they tell are those that framing gives.

namespace {

using namespace vantrel;

constexpr qsizetype Most = 4096;

bool IsThereARecord(const QString& text, const Delimiters& delimiters, const Filters& filters)
{
    try {
        QString buffer = text;
        ParseDataStream(buffer, delimiters, filters);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

void CheckPieces(const std::vector<RecordPiece>& pieces, const QByteArray& raw, qsizetype values)
{
    QByteArray bytes;
    int value = 0;
    for (const RecordPiece& piece : pieces) {
        bytes += piece.Bytes;
        fuzz::Require(piece.Value >= 0 && piece.Value <= values, "a part stands in a value");
        fuzz::Require(piece.Value == 0 || piece.Value >= value, "values rise");
        value = std::max(value, piece.Value);
    }
    fuzz::Require(raw.contains(bytes), "the parts are the bytes of the record");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const Filters filters = fuzz::FiltersOf(input.Byte());
    const InputEncoding encoding =
        (input.Byte() & 1U) != 0 ? InputEncoding::Utf8 : InputEncoding::CodePage1252;
    const Delimiters delimiters{input.Line(), input.Line(), input.Line()};
    const QByteArray raw = input.Rest();
    const QString text = InputDecoder(encoding).Decode(raw);

    const auto framed = PiecesOfRecord(raw, encoding, delimiters, filters, RecordCut::Framed, Most);
    fuzz::Require(framed.has_value() == IsThereARecord(text, delimiters, filters),
                  "a record has parts");
    if (framed) {
        QString buffer = text;
        CheckPieces(*framed, raw, ParseDataStream(buffer, delimiters, filters).size());
    }
    const auto whole = PiecesOfRecord(raw, encoding, delimiters, filters, RecordCut::Whole, Most);
    fuzz::Require(whole.has_value(), "a whole record has parts");
    QString buffer = text;
    CheckPieces(*whole, raw, ParseWithoutCut(buffer, delimiters, filters).size());
    return 0;
}
