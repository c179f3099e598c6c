#pragma once

#include "ports/Framing.h"

namespace vantrel {

/// @file The delimiters and filters in force for a record, as its entry in the ledger keeps them: a
/// JSON object.

QString FramingText(const Delimiters& delimiters, const Filters& filters);

/// The delimiters and filters of such a text.
struct KeptFraming
{
    vantrel::Delimiters Delimiters;
    vantrel::Filters Filters;
};
/// Of a text that is none, empty delimiters without filters.
KeptFraming ReadFraming(const QString& text);

} // namespace vantrel
