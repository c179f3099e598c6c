#pragma once

#include "store/StoreLock.h"
#include <QString>
#include <QStringList>
#include <cstdint>

namespace vantrel {

class CardDocument;
class Connection;

/// What a transaction must lock that takes numbers of a page. Others that take numbers of the same
/// page wait for it; whoever saves a page, or changes numbers in another way, locks the whole
/// store.
StoreLock LockOfNumbers(const QString& layoutName, std::int16_t page);

/// Takes the next automatic numbers of a page from the store, for the objects that were loaded from
/// it. Must be called inside a transaction with the lock of the numbers or of the store, so that no
/// other session takes the same numbers; they are taken once it is committed. The objects then show
/// the numbers before, since printing raises them.
/// @return the numbers taken, in stacking order; nothing if the page in the store has another set
/// of numbers than the document, which must then be loaded again Fails like `Recordset`, and with
/// `Overflow` for a number that cannot rise any further.
std::optional<QStringList> TakeNumbers(Connection& layoutDb, const QString& layoutName,
                                       std::int16_t page, CardDocument& document);

/// The numbers that printing the document will show, without taking them.
QStringList NextNumbers(const CardDocument& document);

} // namespace vantrel
