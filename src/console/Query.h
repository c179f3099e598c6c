#pragma once

#include "ledger/LedgerReading.h"
#include <QMap>

namespace vantrel::console {

/// A request that is not understood, or not taken, with its status and the reason, one plain line.
/// Whoever answers a request may throw it.
struct NotTaken
{
    int Status;
    QString Reason;
};

/// The filter that the values of a query ask for: "state", "text", "since", "until", "before" and
/// "limit", 100 where that is missing and 1000 at most. An empty value counts as missing. Throws
/// `NotTaken` for a value that is none of its name.
LedgerFilter FilterOf(const QMap<QString, QString>& query);

} // namespace vantrel::console
