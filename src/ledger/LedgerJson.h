#pragma once

#include "ledger/LedgerCounts.h"
#include "ledger/LedgerRows.h"
#include <QByteArray>
#include <functional>

namespace vantrel {

/// A time for programs: ISO 8601 in UTC with milliseconds.
QString LedgerTimeText(qint64 time);

/// One entry as a JSON object in UTF-8, its keys in the order of the documents. Values that were
/// not kept are null.
QByteArray LedgerEntryJson(const LedgerEntry& entry);
/// The same with what is read only for one entry: `framing`, an object or null, and `raw`, the
/// bytes as they came in Base64, or null.
QByteArray LedgerWholeEntryJson(const LedgerEntry& entry);

/// What became of the cards of one layout on one day, as a JSON object in UTF-8.
QByteArray LedgerCountJson(const LedgerCount& count);

/// Writes a list as one JSON object, one element after the other.
class LedgerJsonList
{
public:
    using Write = std::function<void(const QByteArray&)>;

    /// @param name  the key of the list, such as "entries"
    LedgerJsonList(const QByteArray& name, Write write);
    /// @param json  an element, such as an entry
    void Add(const QByteArray& json);
    /// Writes the rest. Nothing may be added afterwards.
    void End();

private:
    QByteArray m_before;
    Write m_write;
    bool m_isEmpty = true;
};

} // namespace vantrel
