#pragma once

#include <QString>
#include <functional>

namespace vantrel {

class Session;

/// Schemes of the check digit that a made-up number gets, by the index of their option.
enum class SequenceDigit { None = -1, Mod10 = 0, Codabar = 1 };

/// What the operator asks of the card number sequence generator, as it stands in the fields.
struct SequenceOrder
{
    QString Start;
    /// The bound: the run goes up to the number before it.
    QString End;
    SequenceDigit CheckDigit = SequenceDigit::None;
    bool Spacing = false;
    /// Digits in a group.
    QString DigitCount;
};

/// One number of a run: with its check digit, and in groups.
struct SequenceRow
{
    QString Number;
    QString Groups;
};

/// The row of a number. Fails where the number has no check digit of that scheme, or the groups no
/// length.
SequenceRow MakeSequenceRow(const SequenceOrder& order, double value);
/// The text of a row as a host would send it.
QString RecordOfRow(const SequenceOrder& order, const SequenceRow& row);

/// Told after each number how many of how many are done; false ends the run.
using SequenceProgress = std::function<bool(double done, double count)>;

/// Makes up the numbers and feeds each one through the road of a received record, framed by "<",
/// "+" and ">" while it lasts; so is a record that a port brings meanwhile. The station's own
/// delimiters stand again at the end, whatever happens. Numbers that cannot be made end the run in
/// silence.
void RunSequence(Session& session, const SequenceOrder& order, const SequenceProgress& progress);

} // namespace vantrel
