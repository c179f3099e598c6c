#include "station/print/Reprint.h"
#include "base/Skip.h"
#include "card/CardDocument.h"
#include "card/PrinterType.h"
#include "ledger/LedgerPages.h"
#include "station/layout/FormerPrinter.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/PageDescription.h"
#include "station/layout/RecordPage.h"
#include "station/ledger/CardRecord.h"
#include "station/ledger/FramingText.h"
#include "station/print/CardAsPrinted.h"
#include "station/print/PrintCard.h"
#include "station/print/PrintPage.h"
#include "station/print/Serializer.h"
#include "station/session/Session.h"
#include <QScopeGuard>
#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

void SendStream(Printers& printers, const QString& text)
{
    Skip("open output", [&] { printers.Current().Print(QStringLiteral(" ")); });
    Skip("print output", [&] { printers.Current().Print(text); });
}

void ReprintCard(Session& session, const LedgerCard& card, const FieldValues& values)
{
    QString content;
    Skip("page", [&] { content = PageContent(session.LayoutDb.Database(), card.PageHash); });
    LayoutPage page;
    page.LayoutName = card.Layout;
    CardRecord record(session, page);
    if (!record.BeginAgain(card, content))
        return;
    LayoutParamsRecord& params = page.Params;
    page.Document.Load();
    BuildCard(content, values, card, session.Pictures, page.Document, params);
    const CopyKind kind = PrinterTypeOf(params.PrinterType).Copy;
    Skip("choose printer", [&] { session.Printers.MakeCurrent(card.Printer); });
    if (kind == CopyKind::SerializedPass) {
        SendStream(session.Printers, RenderStream(StreamRows(content), params.Filter, values));
        record.End();
        return;
    }
    if (kind == CopyKind::OrientedPagePass)
        Skip("orientation",
             [&] { session.Printers.Current().SetOrientation(params.PrinterOrientation); });
    record.Note(DrawPage(session.Printers, card.Layout, params, values, page.Document,
                         ChecksOf(session.Options)));
    record.End();
}

/// Makes a card that has no page, as it was never drawn.
void PrintAsNew(Session& session, const LedgerCard& card, const FieldValues& values)
{
    const RecordPage record(session, PageToPrint(session, card.Layout));
    LayoutPage& on = record.Page();
    const auto page = static_cast<std::int16_t>(card.Page);
    std::int16_t pages = 0;
    Skip("count pages", [&] { pages = CountLayoutPages(session.LayoutDb, on.LayoutName); });
    if (on.LayoutName != card.Layout || page > pages) {
        CardRecord(session, on)
            .Refuse(card, QStringLiteral("The layout %1 has no page %2 in the database.")
                              .arg(card.Layout, QString::number(page)));
        return;
    }
    session.FieldValues = values;
    session.Run->Copy = card.Copy;
    PrintOnePage(session, on, page);
}

/// Makes the cards as new that the station had not begun when it ended within a record: the further
/// pages and copies of the layout that it was printing.
void PrintNotBegun(Session& session, const LedgerCard& last, const FieldValues& values)
{
    const RecordPage record(session, PageToPrint(session, last.Layout));
    LayoutPage& on = record.Page();
    if (on.LayoutName != last.Layout)
        return;
    session.FieldValues = values;
    PrintFurther(session, on, last.Copy, static_cast<std::int16_t>(last.Page));
}

} // namespace

void ReprintCards(Session& session, const LedgerEntry& first)
{
    std::optional<FormerPrinter> printer;
    if (PrintsBehindSurface(session))
        printer.emplace(session);
    FieldValues values;
    for (const QString& value : first.Values)
        values.Add(value);
    const PictureSource usual =
        std::exchange(session.Pictures, PicturesOf(first.Framing, session.Pictures));
    const auto restore = qScopeGuard([&] { session.Pictures = usual; });
    for (const LedgerCard& card : first.Cards)
        Skip("card", [&] {
            if (card.PageHash.isEmpty())
                PrintAsNew(session, card, values);
            else
                ReprintCard(session, card, values);
        });
    if (first.State == LedgerState::Doubtful && !first.Cards.empty())
        Skip("cards not begun", [&] { PrintNotBegun(session, first.Cards.back(), values); });
}

bool WasChangedSince(Connection& layoutDb, const LedgerEntry& first)
{
    return std::any_of(first.Cards.begin(), first.Cards.end(), [&](const LedgerCard& card) {
        QString present;
        Skip("describe page", [&] {
            present =
                DescribePage(layoutDb, card.Layout, static_cast<std::int16_t>(card.Page)).Hash;
        });
        return !card.PageHash.isEmpty() && present != card.PageHash;
    });
}

} // namespace vantrel
