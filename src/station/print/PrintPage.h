#pragma once

#include "card/CardRemark.h"
#include <QString>

namespace vantrel {

class CardDocument;
class FieldValues;
class Printers;
class Session;
struct LayoutParamsRecord;

/// Draws a page on the current printer, as an open job, and raises its automatic numbers in memory.
/// Every printer operation that fails is skipped.
/// @return what is not on the card as the document has it
CardRemarks DrawPage(Printers& printers, const QString& layoutName,
                     const LayoutParamsRecord& params, const FieldValues& values,
                     const CardDocument& document);

/// Prints the open page as one job, then saves it. Called by `PrintCard` only. Every printer
/// operation that fails is skipped.
void PrintCard_Ex(Session& session);

} // namespace vantrel
