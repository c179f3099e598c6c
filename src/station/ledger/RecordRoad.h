#pragma once

#include "ledger/RecordLedger.h"

namespace vantrel {

class Session;

/// Where a record came from, and who is told its outcome.
struct RecordOrigin
{
    /// What the ledger names as the source.
    QString Source;
    /// The record's bytes as they came; empty for what was entered at the station.
    QByteArray Raw = {};
    /// The entry in the ledger that is carried out, such as one that was received before the
    /// station was killed.
    std::optional<LedgerEntry> Stored = {};
    /// The layout that it prints on; empty for the open one.
    QString Layout = {};
    /// The pool that it is left to; empty for none.
    QString Pool = {};
    /// Called once with the entry when its outcome is known. May be empty.
    std::function<void(const LedgerEntry&)> Told = {};
};

/// Puts a record on its road as long as the object lives: the cards that are printed meanwhile are
/// the record's cards. Does nothing if the station keeps no account of records, that is, neither a
/// ledger nor answers to hosts.
class RecordRoad
{
public:
    RecordRoad(Session& session, RecordOrigin origin);
    RecordRoad(const RecordRoad&) = delete;
    RecordRoad& operator=(const RecordRoad&) = delete;
    ~RecordRoad();

    /// Writes the record into the ledger now if the ledger must be kept.
    /// @return false if it must not be taken, because the ledger must be kept and cannot be
    /// written; nothing of it then stays
    bool Secure(const QString& text);
    /// Whether the record, which is in the ledger, must be taken once more when its cards can be
    /// written there.
    bool IsPostponed() const { return m_run && m_run->IsPostponed; }

private:
    Session& m_session;
    RecordRunPtr m_run;
    RecordRunPtr m_outer;
};

/// Notes the values of the record in hand; does nothing if none is on its road.
void NoteValues(Session& session);
/// Notes why the record in hand gets no card.
void NoteWhyNoCard(Session& session, const QString& reason);

} // namespace vantrel
