#pragma once

#include "Commands.h"
#include "LedgerOptions.h"

namespace vantrel::admin {

inline constexpr Option AgainOption{"--again", "", "also if it was printed again already"};
inline constexpr Option OlderOption{"--older-than", "DAYS",
                                    "removes what arrived more than so many days ago"};
inline constexpr Option AllOption{"--all", "", "removes all that is finished"};

inline constexpr Option ListOptions[] = {StateOption,  TextOption,  SinceOption, UntilOption,
                                         BeforeOption, LimitOption, JsonOption};
inline constexpr Option JsonOptions[] = {JsonOption};
inline constexpr Option ReprintOptions[] = {AgainOption, JsonOption};
inline constexpr Option CountsOptions[] = {SinceOption, UntilOption, JsonOption};
inline constexpr Option ExportOptions[] = {StateOption, TextOption, SinceOption, UntilOption};
inline constexpr Option PurgeOptions[] = {OlderOption, AllOption};

/// @file The commands on the ledger of a program folder, which stations may write meanwhile. All
/// fail with `FileNotFound` if the folder has no layout database, with `ItemNotFound` if that has
/// no ledger.

void RunLedgerList(const Words& words);
void RunLedgerShow(const Words& words);
void RunLedgerReprint(const Words& words);
void RunLedgerVoid(const Words& words);
void RunLedgerCounts(const Words& words);
void RunLedgerExport(const Words& words);
void RunLedgerPurge(const Words& words);

} // namespace vantrel::admin
