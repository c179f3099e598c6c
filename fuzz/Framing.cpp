#include "ports/Framing.h"
#include "FuzzFilters.h"
#include "FuzzInput.h"
#include "base/Failure.h"
#include "base/InputText.h"
#include "ports/InputBuffer.h"
#include "ports/RecordCutter.h"
#include <algorithm>

// For any delimiters and any bytes in any pieces: a record is found if and only if it would be
// found in one piece, no value contains a separator, an input of its own gives the same records in
// pieces as in one, and UTF-8 gives back its bytes.

namespace {

using namespace vantrel;

void CutRecord(QString text, const Delimiters& delimiters, const Filters& filters)
{
    const QString before = text;
    try {
        const QStringList values = ParseDataStream(text, delimiters, filters);
        fuzz::Require(text.size() <= before.size(), "a record is no longer than what came");
        fuzz::Require(values.size() <= text.size(), "there are no more values than characters");
    } catch (const Failure&) {
        fuzz::Require(text == before, "what cannot be cut stays as it was");
    }
    QString whole = before;
    ParseWithoutCut(whole, delimiters, filters);
}

QStringList RecordsOf(const QString& text, qsizetype piece, const Delimiters& delimiters)
{
    RecordCutter cutter;
    cutter.SetDelimiters(delimiters.DataStart, delimiters.DataEnd);
    QStringList records;
    for (qsizetype from = 0; from < text.size(); from += piece) {
        cutter.Append(text.mid(from, piece));
        while (cutter.HasRecord())
            records.append(cutter.TakeRecord());
    }
    return records;
}

void DecodeInput(const QByteArray& bytes, qsizetype piece)
{
    InputDecoder decoder(InputEncoding::Utf8);
    QString text;
    for (qsizetype from = 0; from < bytes.size(); from += piece)
        text += decoder.Decode(bytes.mid(from, piece));
    // Completes or breaks what is kept of the last character.
    text += decoder.Decode(QByteArrayView(">", 1));
    const QByteArray back = BytesOfInput(text, InputEncoding::Utf8);
    fuzz::Require(back == bytes + '>' || "\xEF\xBB\xBF" + back == bytes + '>',
                  "the bytes come back as they came, but for a byte order mark");
    fuzz::Require(ShownInput(text).isValidUtf16(), "what is shown is valid text");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const Filters filters = fuzz::FiltersOf(input.Byte());
    const int piece = 1 + input.Byte();
    const Delimiters delimiters{input.Line(), input.Line(), input.Line()};
    const QByteArray bytes = input.Rest();
    const QString text = FromCodePage(bytes);

    InputBuffer inPieces;
    bool found = false;
    for (qsizetype from = 0; from < text.size(); from += piece) {
        inPieces.Append(text.mid(from, piece));
        found = inPieces.IsComplete(delimiters.DataStart, delimiters.DataEnd);
    }
    InputBuffer inOne;
    inOne.Set(text);
    fuzz::Require(inPieces.Text() == text, "no character is lost between pieces");
    if (!text.isEmpty())
        fuzz::Require(found == inOne.IsComplete(delimiters.DataStart, delimiters.DataEnd),
                      "a record is found in pieces as in one");
    CutRecord(text, delimiters, filters);
    fuzz::Require(RecordsOf(text, piece, delimiters) ==
                      RecordsOf(text, std::max<qsizetype>(1, text.size()), delimiters),
                  "the same records are cut from pieces as from one");
    DecodeInput(bytes, piece);
    return 0;
}
