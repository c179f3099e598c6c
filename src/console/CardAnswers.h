#pragma once

#include "console/Routes.h"

namespace vantrel::console {

/// The picture of a card as it was printed; 404 with the reason if there is none. Fails like
/// `StoreDatabase`.
Answer ShowCard(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

/// What framing made of the bytes of a record, in pieces that stand beside each other. Fails like
/// `StoreDatabase`.
Answer ShowParts(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

} // namespace vantrel::console
