#pragma once

#include "ledger/LedgerRows.h"
#include <functional>
#include <memory>

namespace vantrel {

/// How far the rows of a run have come on their way into the database.
struct RowState
{
    /// The row is in the database.
    bool Stored = false;
    /// The row was added by a transaction that is not committed yet.
    bool Fresh = false;
    /// The row in memory differs from the one in the database.
    bool Dirty = true;

    bool IsThere() const { return Stored || Fresh; }
};

/// One record on its road, from its arrival to the outcome of its last card.
class RecordRun
{
public:
    /// Without `Values`; the values stand in `ValuesText`.
    LedgerEntry Entry;
    /// The values as they are stored: a JSON array of texts.
    QString ValuesText;
    /// The copy that is being printed, from 1.
    int Copy = 1;
    /// Why there is no card, if none is begun.
    QString WhyNoCard;
    /// Called once, after the outcome of the last card is in the ledger, or at once where no
    /// ledger is kept. May be empty.
    std::function<void(const LedgerEntry&)> Settled;

    /// It is an entry of the ledger whose first card could not be written, and waits until it can.
    bool IsPostponed = false;

    /// Lets the entry be found by a value too.
    void AddSearchText(const QString& value);
    /// What the entry is found by: its source, layouts, numbers and values, with their case folded,
    /// separated by line feeds.
    QString SearchText() const;
    /// Whether it is an entry that was in the ledger before, none of whose cards is.
    bool MayBePostponed() const;
    /// Whether the outcome of all its cards is known.
    bool IsSettled() const { return m_roadEnded && m_cardsUnderWay == 0; }
    /// Whether a person has declared the entry void in the ledger meanwhile, or another station of
    /// the pool has it, because this one was silent for too long. Nothing of it is printed then.
    bool IsVoid() const { return m_void; }

private:
    friend class RecordLedger;

    /// What a record has come to, and why.
    struct Outcome
    {
        LedgerState State;
        QString Reason;
    };

    /// The state and reason that follow from the cards.
    Outcome OutcomeOfCards() const;
    /// Gives the entry the state and reason that follow from its cards.
    void Judge();
    /// Whether it may be written: before its values are known, an entry would be one without
    /// values for ever, and from a pool it may be taken at once.
    bool IsComplete() const
    {
        if (!Entry.Pool.isEmpty())
            return m_roadEnded;
        return m_valuesKnown || m_wasInLedger || m_roadEnded || !m_cardRows.empty();
    }

    QString m_valuesSearch;
    bool m_valuesKnown = false;
    bool m_wasInLedger = false;
    bool m_roadEnded = false;
    bool m_void = false;
    int m_cardsUnderWay = 0;
    RowState m_entryRow;
    std::vector<RowState> m_cardRows;
    /// Descriptions of pages that may not be in the database yet, by their keys.
    std::vector<std::pair<QString, QString>> m_pages;
};

/// The line that answers a host: "OK", the entry's number and the number of cards handed over,
/// which is 0 for a record that was left to a pool; or "ERR", the number and the reason.
QString AnswerTo(const LedgerEntry& entry);

using RecordRunPtr = std::shared_ptr<RecordRun>;

} // namespace vantrel
