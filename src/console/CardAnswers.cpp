#include "console/CardAnswers.h"
#include "console/ConsoleStore.h"
#include "ledger/LedgerJson.h"
#include "station/ledger/HistoryEntry.h"

namespace vantrel::console {

Answer ShowCard(ConsoleStore& store, const Request& /*request*/, const PathNumbers& numbers)
{
    const CardPictures::Drawn drawn = store.Pictures().Draw(
        store.Database(), numbers.at(0), numbers.at(1), store.PicturesOfRecords());
    if (drawn.Png.isEmpty())
        return Refusal(404, drawn.Problem);
    Answer answer;
    answer.Type = "image/png";
    answer.Body = drawn.Png;
    return answer;
}

Answer ShowParts(ConsoleStore& store, const Request& /*request*/, const PathNumbers& numbers)
{
    const auto entry = ReadHistoryEntry(store.Database(), numbers.at(0), store.Encoding());
    if (!entry)
        return Refusal(404, QStringLiteral("The ledger has no entry %1.").arg(numbers.at(0)));
    QByteArray json;
    LedgerJsonList list("parts", [&json](const QByteArray& part) { json += part; });
    for (const RecordPiece& piece : entry->Pieces)
        list.Add("{\"part\": " + JsonText(NameOf(piece.Part)) +
                 ", \"value\": " + QByteArray::number(piece.Value) +
                 ", \"text\": " + JsonText(ShownInput(piece.Text)) + '}');
    list.End();
    return JsonAnswer(json);
}

} // namespace vantrel::console
