#pragma once

#include "card/CardRemark.h"
#include "ledger/RecordLedger.h"
#include "printers/Printer.h"

namespace vantrel {

class Session;
struct LayoutPage;

/// The account of one card, that is, one page of one copy: its numbers are taken and it stands in
/// the ledger before it is drawn, and its outcome is noted after it. Does nothing but take numbers
/// if no account of records is kept, and nothing at all without unique numbers either.
class CardRecord
{
public:
    /// @param page  the page that is printed; must outlive this object
    CardRecord(Session& session, LayoutPage& page);

    /// Takes the numbers of the page and writes the card into the ledger, in one durable
    /// commit.
    /// @param reload  loads the page again; called if its numbers were changed in the store
    /// meanwhile
    /// @return false if the page must not be printed; the reason is noted
    bool Begin(const std::function<void()>& reload);
    /// Writes a card into the ledger that is printed again, with the numbers, page and printer of
    /// the first one. Takes no number.
    /// @param content  the description of the page; empty if it is not known
    /// @return like `Begin`
    bool BeginAgain(const LedgerCard& first, const QString& content);
    /// Tells what is not on the card as its layout has it: in the log, and with the card in the
    /// ledger. Where values are not kept, it is told without the reasons, which may name them.
    /// Called between `Begin` and `End`.
    void Note(const CardRemarks& remarks);
    /// Must be called when the page is drawn: ends the printer's job and notes its outcome.
    void End();
    /// Notes that a card could not be begun.
    void Refuse(LedgerCard card, const QString& reason);

private:
    bool IsPrinterThere(const QString& name) const;
    bool NotedAsFailed(const QString& reason);
    bool Refused(const QString& reason);
    bool Postponed();
    StoreLock Lock(bool withLedger) const;
    void Take(const StoreLock& lock, const std::function<void()>& reload);
    bool Commit(bool withLedger, const std::function<void()>& reload);

    Session& m_session;
    LayoutPage& m_page;
    RecordRunPtr m_run;
    /// Index of the card in the run; nothing before it is noted.
    std::optional<std::size_t> m_index;
};

} // namespace vantrel
