#pragma once

#include <QString>
#include <functional>

namespace vantrel {

class Session;

/// Check digit schemes of generated numbers, by the index of their option.
enum class SequenceDigit { None = -1, Mod10 = 0, Codabar = 1 };

/// The operator's input in the card number sequence generator, as typed.
struct SequenceOrder
{
    QString Start;
    /// Exclusive end: the last number sent is the one before it.
    QString End;
    SequenceDigit CheckDigit = SequenceDigit::None;
    bool Spacing = false;
    /// Number of digits in a group.
    QString DigitCount;
};

/// One number of a run, with its check digit and in groups.
struct SequenceRow
{
    QString Number;
    QString Groups;
};

/// Builds the row of a number. Fails if the check digit cannot be computed, and with `InvalidCall`
/// if the group length is missing.
SequenceRow MakeSequenceRow(const SequenceOrder& order, double value);
/// The record that is sent for a row, with delimiters.
QString RecordOfRow(const SequenceOrder& order, const SequenceRow& row);

/// Called after each number with the numbers done and the total; returns false to end the run.
using SequenceProgress = std::function<bool(double done, double count)>;

/// Generates the numbers and processes each one like a received record, with the delimiters "<",
/// "+" and ">". These also apply to records that ports receive during the run. The station's own
/// delimiters are restored at the end in any case. A number that cannot be generated silently ends
/// the run. Nothing is generated if `MayPrintStored` says no.
void RunSequence(Session& session, const SequenceOrder& order, const SequenceProgress& progress);

} // namespace vantrel
