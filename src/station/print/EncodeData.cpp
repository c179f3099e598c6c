#include "station/print/EncodeData.h"
#include "base/NumberFormat.h"
#include "base/Skip.h"
#include "card/OpeningFont.h"
#include "card/PrinterType.h"
#include "printers/Printer.h"

namespace vantrel {

namespace {

/// The magnetic font is chosen before the first token is evaluated; what fails leaves it chosen.
void PrintTokens(Printer& printer, const StripeTrack& track, const QString& formula,
                 const FieldValues& values)
{
    printer.SetFontName(track.Head());
    EvaluateTrack(formula, values, MachineDecimalSeparator(),
                  [&](TokenKind kind, const QString& text) {
                      if (const auto line = track.Text(kind, text))
                          printer.Print(*line);
                  });
    printer.SetFontName(OpeningFontName);
}

/// A station without a printer prints on nothing all the same: the track is evaluated first.
bool TravelsBesideThePage(Printers& printers, const StripeTrack& track)
{
    bool travels = false;
    Skip("channel of the stripe",
         [&] { travels = printers.Current().CarriesStripe(track.Number()); });
    return travels;
}

} // namespace

void EncodeData(Printers& printers, std::int32_t printerType, const FieldValues& values,
                const QString& formula, int trackNumber)
{
    const StripeFamily* const family = PrinterTypeOf(printerType).Stripe;
    if (family == nullptr) {
        EvaluateTrack(formula, values, MachineDecimalSeparator(), [](TokenKind, const QString&) {});
        return;
    }
    const StripeTrack track(*family, trackNumber);
    const bool travels = TravelsBesideThePage(printers, track);
    if (!travels && track.Form() == SentAs::LinePerToken) {
        PrintTokens(printers.Current(), track, formula, values);
        return;
    }
    // A track without a single character is not sent: head and tail alone say nothing.
    const QString body = track.Body(formula, values, MachineDecimalSeparator());
    if (body.isEmpty())
        return;
    if (travels)
        printers.Current().SendStripe(track.Number(), track.Line(body));
    else
        printers.Current().Print(track.Line(body));
}

} // namespace vantrel
