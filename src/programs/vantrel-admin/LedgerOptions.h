#pragma once

#include "Commands.h"
#include "ledger/LedgerReading.h"

namespace vantrel::admin {

/// The options that choose entries. `list` has all of them.
inline constexpr Option StateOption{"--state", "STATE",
                                    "only entries in this state: received, printing, printed, "
                                    "done, failed, doubtful or void"};
inline constexpr Option TextOption{
    "--text", "TEXT", "only entries with this text in source, layout, values or numbers"};
inline constexpr Option SinceOption{
    "--since", "TIME",
    "only what arrived since: a date, a date and time (2026-11-21T14:03), or 7d, 12h, 30m ago"};
inline constexpr Option UntilOption{"--until", "TIME", "only what arrived before"};
inline constexpr Option BeforeOption{"--before", "ID", "only entries with a lower number"};
inline constexpr Option LimitOption{"--limit", "N", "at most so many entries; 0 for all"};
inline constexpr Option JsonOption{"--json", "", "prints JSON for programs"};

/// The filter that the options ask for. Fails with `NotUnderstood` for a value that is none.
LedgerFilter FilterOf(const Words& words);

/// A whole number of at least `least`. Fails with `NotUnderstood` for anything else.
/// @param name  the option or argument, for the message
qlonglong NumberOf(const QString& text, const char* name, qlonglong least);

} // namespace vantrel::admin
