#pragma once

#include "card/CardRemark.h"
#include <QString>
#include <optional>

namespace vantrel {

class CardDocument;
class FieldValues;
class Printers;
class ReadAhead;
class Session;
struct LayoutPage;
struct LayoutParamsRecord;
struct StationOptions;

/// What is checked of a card while it is drawn: nothing, or what its values bring about, such as a
/// name that leaves its box. What a layout has in itself is told by its check, see `CheckPage`.
enum class CardChecks { None, OfValues };

/// The checks of a station's cards.
CardChecks ChecksOf(const StationOptions& options);

/// Draws a page on the current printer, as an open job, and raises its automatic numbers in memory.
/// Every printer operation that fails is skipped.
/// @return what is not on the card as the document has it, and what the checks found
CardRemarks DrawPage(Printers& printers, const QString& layoutName,
                     const LayoutParamsRecord& params, const FieldValues& values,
                     const CardDocument& document, CardChecks checks);

/// Prints the page as one job, then saves it; of a page behind the surface only its numbers, which
/// the surface then shows. Called by `PrintCard` only. Every printer operation that fails is
/// skipped.
/// @param look  by which the page was read; ended when the card has begun, before events run
void PrintCard_Ex(Session& session, LayoutPage& page, std::optional<ReadAhead>& look);
/// Shows on the surface the numbers of a card that was printed behind it.
void ShowNumbersOnSurface(Session& session, const LayoutPage& printed);

} // namespace vantrel
