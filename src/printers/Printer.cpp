#include "printers/Printer.h"

namespace vantrel {

namespace {
constexpr QLatin1StringView FailureBeginning{"Printer error: "};
} // namespace

QString ReasonOf(const Failure& failure)
{
    QString reason = failure.Text();
    if (reason.startsWith(FailureBeginning))
        reason.remove(0, FailureBeginning.size());
    return reason.isEmpty() ? QStringLiteral("The printer gave no reason") : reason;
}

void Printer::EndDocAndTell(const JobEnd& told)
{
    JobOutcome outcome;
    try {
        EndDoc();
        outcome.HandedOver = true;
    } catch (const Failure& failure) {
        outcome.Reason = ReasonOf(failure);
    }
    told(outcome);
}

} // namespace vantrel
