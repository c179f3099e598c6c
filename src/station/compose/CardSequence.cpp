#include "station/compose/CardSequence.h"
#include "base/CodePage.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "card/CheckDigits.h"
#include "station/capture/Pipeline.h"
#include "station/layout/DesignSteps.h"
#include "station/ledger/RecordRoad.h"
#include "station/ledger/StationLedger.h"
#include "station/session/Session.h"
#include <QScopeGuard>

namespace vantrel {

namespace {

/// Sets the delimiters of a run, and restores the station's own at its end.
class RunDelimiters
{
public:
    explicit RunDelimiters(Session& session) : m_session(session), m_kept(session.Settings.Framing)
    {
        session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
    }
    RunDelimiters(const RunDelimiters&) = delete;
    RunDelimiters& operator=(const RunDelimiters&) = delete;
    ~RunDelimiters() { m_session.Settings.Framing = m_kept; }

private:
    Session& m_session;
    Delimiters m_kept;
};

QString WithoutDecimals(double value)
{
    const double whole = RoundHalfToEven(value);
    // Avoids "-0".
    return QString::number(whole == 0 ? 0.0 : whole, 'f', 0);
}

QString CheckDigitOf(SequenceDigit scheme, double value)
{
    QString text = NumberText(value);
    switch (scheme) {
    case SequenceDigit::Mod10:
        return QString::number(Mod10CheckDigit(text));
    case SequenceDigit::Codabar:
        return CodabarCheckDigit(text);
    case SequenceDigit::None:
        break;
    }
    return {};
}

QString InGroups(const QString& number, std::int32_t length)
{
    if (length < 1)
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("A group needs a length"));
    QString spaced;
    for (qsizetype from = 0; from < number.size(); from += length)
        spaced += number.mid(from, length) + QLatin1Char(' ');
    return TrimBlanks(spaced).toString();
}

void TakeSequenceRow(Session& session, const QString& record)
{
    const RecordRoad road(session,
                          {.Source = QStringLiteral("Card sequence"), .Raw = ToCodePage(record)});
    ProcessStream(session, record);
}

} // namespace

SequenceRow MakeSequenceRow(const SequenceOrder& order, double value)
{
    SequenceRow row;
    row.Number = WithoutDecimals(value) + CheckDigitOf(order.CheckDigit, value);
    if (order.Spacing)
        row.Groups = InGroups(row.Number, ToLong(order.DigitCount));
    return row;
}

QString RecordOfRow(const SequenceOrder& order, const SequenceRow& row)
{
    QString text = QLatin1Char('<') + row.Number;
    if (order.Spacing)
        text += QLatin1Char('+') + row.Groups;
    return text + QLatin1Char('>');
}

void RunSequence(Session& session, const SequenceOrder& order, const SequenceProgress& progress)
{
    if (!MayPrintStored(session))
        return;
    const RoadHold hold(session.Road);
    const RunDelimiters delimiters(session);
    // While a next number follows, the ledger is written with its card.
    const auto writeTheRest = qScopeGuard([&] {
        session.RecordWaits = false;
        WriteLedger(session);
    });
    Skip("card number sequence", [&] {
        const double start = ToDouble(order.Start);
        const double count = ToDouble(order.End) - start;
        // The end number itself is not sent. Rows are counted because the value of very large
        // numbers does not change when 1 is added.
        for (double row = 0; row + 1 <= count; ++row) {
            session.RecordWaits = row + 2 <= count;
            TakeSequenceRow(session, RecordOfRow(order, MakeSequenceRow(order, start + row)));
            if (!progress(row + 1, count))
                return;
        }
    });
}

} // namespace vantrel
