#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace vantrel {

/// The state of an entry or of a card. An entry has the state of its cards: `Failed` or `Doubtful`
/// if one of them is, otherwise `Printed` once all are handed over and `Done` once all are done.
enum class LedgerState {
    /// The record is in the ledger and no card was begun.
    Received,
    /// A card was begun and its outcome is not known yet.
    Printing,
    /// Handed over: the file is whole on the disk, or the print server has the job.
    Printed,
    /// The print server has reported the job as completed.
    Done,
    /// Not printed, or aborted or canceled at the print server.
    Failed,
    /// The station ended between the beginning and the end of a card.
    Doubtful,
    /// A person has declared the card void.
    Void,
};

/// The state's name in the tables and for programs, such as "received".
QString NameOf(LedgerState state);
/// @return the state of that name, or nothing
std::optional<LedgerState> LedgerStateOf(QStringView name);
/// The names of all states, in the order of the enumeration.
QStringList LedgerStateNames();

/// One page of one copy: one job, or one file of the built-in printer.
struct LedgerCard
{
    /// Key of the row; 0 before it is stored.
    qlonglong Id = 0;
    QString Layout;
    /// Counts from 1.
    int Page = 1;
    int Copy = 1;
    QString Printer;
    /// The automatic numbers on the card, in stacking order.
    QStringList Numbers;
    /// Key of the page's description in `LedgerPages`; empty if it was not kept.
    QString PageHash;
    /// The print server's job; nothing for a file.
    std::optional<int> Job;
    /// File name without its folder; empty for a job.
    QString File;
    LedgerState State = LedgerState::Printing;
    /// Why it failed, or what is missing on a card that was printed; mostly empty.
    QString Reason;
    /// Time of the last change, in milliseconds since 1970, UTC.
    qint64 Changed = 0;
};

/// The session number of an entry that waits for any station of its pool.
inline constexpr int NoSession = 0;

/// One record that was taken, or one that was printed again.
struct LedgerEntry
{
    /// The entry's number; 0 before it is stored. Numbers rise and are never used twice.
    qlonglong Id = 0;
    LedgerState State = LedgerState::Received;
    /// Why it failed, or what is missing on the first of its cards that has such a remark.
    QString Reason;
    /// Time of arrival, in milliseconds since 1970, UTC.
    qint64 Received = 0;
    /// The session that carries it out; `NoSession` while it waits in a pool.
    int Session = 1;
    /// The host's address and port, "COM1", or what else the record came from.
    QString Source;
    /// The layout that was open when the record came; empty for none.
    QString Layout;
    /// The record as it came, delimiters included; empty if values are not kept.
    QByteArray Raw;
    /// The delimiters and filters in force, as JSON; empty if values are not kept.
    QString Framing;
    QStringList Values;
    /// Whether `Raw` and `Values` were kept. If not, only the three members below are known.
    bool HasValues = true;
    /// Bytes of the record.
    qlonglong Length = 0;
    int ValueCount = 0;
    /// HMAC-SHA-256 of the record in hexadecimal, with the folder's own key; empty if values are
    /// kept.
    QString Hash;
    /// The first entry of a card that is printed again.
    std::optional<qlonglong> ReprintOf;
    /// The pool that a new entry is left to; empty for none. Not read back.
    QString Pool;
    std::vector<LedgerCard> Cards;
};

} // namespace vantrel
