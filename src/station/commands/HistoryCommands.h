#pragma once

#include "ledger/LedgerTending.h"
#include <QString>

namespace vantrel {

class Session;

/// @file What an operator does with an entry of the history. All of these fail with one plain line
/// if the entry does not allow it, otherwise like `StoreDatabase`.

/// What must be asked before an entry is printed again.
struct ReprintQuestion
{
    /// In plain sentences; empty if nothing needs to be asked.
    QString Text;
    /// How to ask for the reprint once the answer is yes.
    ReprintMode Mode = ReprintMode::Once;
};
/// What is to be asked before an entry is printed again: it was printed, it is not known whether it
/// was, its layout was changed since, or it was printed again before.
ReprintQuestion AskBeforeReprint(Session& session, qlonglong id);

/// Adds the reprint to the ledger; the station of the entry's session prints it.
/// @return what to tell the operator
QString ReprintFromHistory(Session& session, qlonglong id, ReprintMode mode);

/// The question before an entry is declared void, which names what becomes void.
QString AskBeforeVoid(Session& session, qlonglong id);
/// Declares an entry void. @return what to tell the operator
QString VoidFromHistory(Session& session, qlonglong id);

} // namespace vantrel
