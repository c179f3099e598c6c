#pragma once

#include "ports/Framing.h"
#include <functional>

namespace vantrel {

/// @file Framing that passes each value on. A list of the millions of values that a host may send
/// would take many times their own memory.

/// Receives the values of a record in their order, from position 1 on.
using ValueSink = std::function<void(QString value)>;

/// Like `ParseDataStream` in Framing.h, but passes each value to `take`. If it fails, no value was
/// passed.
void ParseDataStream(QString& buffer, const Delimiters& delimiters, const Filters& filters,
                     const ValueSink& take);

/// Like `ParseWithoutCut` in Framing.h, but passes each value to `take`.
void ParseWithoutCut(QString& text, const Delimiters& delimiters, const Filters& filters,
                     const ValueSink& take);

} // namespace vantrel
