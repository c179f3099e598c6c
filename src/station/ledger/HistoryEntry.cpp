#include "station/ledger/HistoryEntry.h"
#include "base/Skip.h"
#include "ledger/LedgerPages.h"
#include "ledger/LedgerReading.h"
#include "ports/FramedValues.h"
#include "station/ledger/FramingText.h"
#include "store/StoreDatabase.h"
#include <algorithm>

namespace vantrel {

namespace {

constexpr qsizetype LongestInList = 200;
constexpr qsizetype LongestValue = 1000;

/// Whether a way of framing gives the values that the entry has.
template <typename Frame>
bool GivesValues(const LedgerEntry& entry, InputEncoding encoding, Frame&& frame)
{
    InputDecoder decoder(encoding);
    QString text = decoder.Decode(entry.Raw);
    bool isSame = true;
    int count = 0;
    const bool framed = Skip("framing", [&] {
        frame(text, [&](const QString& value) {
            isSame = isSame && entry.Values.value(count) == ShownInput(value);
            ++count;
        });
    });
    return framed && isSame && count == entry.Values.size();
}

/// Records that are printed again from those that were kept were taken as a whole; those of hosts
/// between their delimiters.
RecordCut CutOf(const LedgerEntry& entry, const KeptFraming& framing, InputEncoding encoding)
{
    const auto cut = [&](QString& text, const ValueSink& take) {
        ParseDataStream(text, framing.Delimiters, framing.Filters, take);
    };
    const auto whole = [&](QString& text, const ValueSink& take) {
        ParseWithoutCut(text, framing.Delimiters, framing.Filters, take);
    };
    const bool wasWhole = !GivesValues(entry, encoding, cut) && GivesValues(entry, encoding, whole);
    return wasWhole ? RecordCut::Whole : RecordCut::Framed;
}

void AddPieces(HistoryEntry& history, InputEncoding encoding)
{
    const LedgerEntry& entry = history.Entry;
    const KeptFraming framing = ReadFraming(entry.Framing);
    const auto pieces = [&](RecordCut cut) {
        return PiecesOfRecord(entry.Raw, encoding, framing.Delimiters, framing.Filters, cut,
                              MostCharactersTold);
    };
    auto found = pieces(CutOf(entry, framing, encoding));
    if (!found)
        found = pieces(RecordCut::Whole);
    history.Pieces = *std::move(found);
    for (const RecordPiece& piece : history.Pieces)
        history.BytesTold += piece.Bytes.size();
}

} // namespace

HistoryRow RowOf(const LedgerEntry& entry)
{
    HistoryRow row{entry.Id, entry.State, entry.Received, entry.Source,   entry.Layout,
                   {},       {},          entry.Reason,   entry.ReprintOf};
    for (const QString& value : entry.Values) {
        if (row.Values.size() >= LongestInList)
            break;
        row.Values +=
            (row.Values.isEmpty() ? QString() : QStringLiteral(", ")) + value.left(LongestInList);
    }
    if (!entry.HasValues)
        row.Values = QStringLiteral("(%1 values, not kept)").arg(entry.ValueCount);
    QStringList numbers;
    for (const LedgerCard& card : entry.Cards) {
        if (numbers.size() > LongestInList)
            break;
        numbers += card.Numbers;
    }
    row.Numbers = numbers.join(QStringLiteral(", ")).left(LongestInList);
    return row;
}

std::optional<HistoryEntry> ReadHistoryEntry(StoreDatabase& database, qlonglong id,
                                             InputEncoding encoding)
{
    auto entry = FindEntry(database, id);
    if (!entry)
        return std::nullopt;
    HistoryEntry history;
    history.Entry = std::move(*entry);
    AddPieces(history, encoding);
    history.Entry.Raw.clear();
    QStringList& values = history.Entry.Values;
    values = values.first(std::min(values.size(), MostValuesTold));
    for (QString& value : values)
        value.truncate(LongestValue);
    for (const LedgerCard& card : history.Entry.Cards) {
        if (history.Cards.size() == MostCardsTold)
            break;
        history.Cards.push_back({card, PageContent(database, card.PageHash)});
    }
    return history;
}

} // namespace vantrel
