#pragma once

#include <QByteArray>
#include <vector>

namespace vantrel {

/// @file The system's journal, as sd_journal_send(3) describes it.

/// A field of a line in the journal.
struct JournalField
{
    /// Capital letters, digits and underscores.
    QByteArray Name;
    QByteArray Value;
};

/// Whether what this process writes to stderr goes to the journal.
bool IsLogTheJournal();

/// Writes a line. Where no journal runs, nothing is written, and that is no failure.
/// @param fields  one of them is `MESSAGE`
/// @return false if the journal does not take the line
bool WriteToJournal(const std::vector<JournalField>& fields);

} // namespace vantrel
