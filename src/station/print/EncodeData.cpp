#include "station/print/EncodeData.h"
#include "base/NumberFormat.h"
#include "base/Skip.h"
#include "card/OpeningFont.h"
#include "card/PrinterType.h"
#include "printers/Printer.h"

namespace vantrel {

namespace {

/// Prints each token on a line of its own. The magnetic font is set before the first token is
/// evaluated and stays set after a failure.
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

/// Without a printer this is false instead of a failure, because the track must be evaluated first.
bool IsSentBesidePage(Printers& printers, const StripeTrack& track)
{
    bool beside = false;
    Skip("channel of the stripe",
         [&] { beside = printers.Current().CarriesStripe(track.Number()); });
    return beside;
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
    const bool beside = IsSentBesidePage(printers, track);
    if (!beside && track.Form() == SentAs::LinePerToken) {
        PrintTokens(printers.Current(), track, formula, values);
        return;
    }
    // An empty track is not sent.
    const QString body = track.Body(formula, values, MachineDecimalSeparator());
    if (body.isEmpty())
        return;
    if (beside)
        printers.Current().SendStripe(track.Number(), track.Line(body));
    else
        printers.Current().Print(track.Line(body));
}

} // namespace vantrel
