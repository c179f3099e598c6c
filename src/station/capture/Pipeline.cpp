#include "station/capture/Pipeline.h"
#include "base/InputText.h"
#include "base/Skip.h"
#include "ledger/RecordRun.h"
#include "ports/FramedValues.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/PageKey.h"
#include "station/layout/RecordPage.h"
#include "station/ledger/RecordRoad.h"
#include "station/ledger/StationLedger.h"
#include "station/macro/RunMacro.h"
#include "station/print/PrintCard.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include <QLoggingCategory>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(stationLog, "vantrel.station")

// The buffer keeps the text between the delimiters until the record is processed; characters that
// arrive in the meantime are appended to it.
void FrameInput(InputBuffer& input, const StationSettings& settings, FieldValues& values)
{
    QString text = input.Text();
    ParseDataStream(text, settings.Framing, settings.Filters,
                    [&](const QString& value) { values.Add(ShownInput(value)); });
    input.Set(text);
}

// The dialog is not waited for, so this record's card shows the previous picture.
void AskForPicture(Operator& stationOperator)
{
    if (stationOperator.AskYesNo(QStringLiteral("     Take Picture Now?           "),
                                 QStringLiteral("Take Picture")))
        stationOperator.OpenCameraDialog();
}

void TellLastArrival(StationFace& face, const ArrivalSource& source)
{
    face.SetPanelText(LastArrivalPanel, source.Panel);
    face.SetPanelToolTip(LastArrivalPanel,
                         QStringLiteral("Data last received from (%1)").arg(source.From));
}

void TellWhyNoCard(Session& session, const RecordPage& record, const QString& reason)
{
    NoteWhyNoCard(session, reason);
    if (record.IsMissing())
        qCWarning(stationLog).noquote() << "A record gives no card:" << reason;
}

/// Shows the values of a record on the page that it was framed for.
void Pour(Session& session, LayoutPage& page)
{
    Skip("field application", [&] { ReapplyFieldValues(session, page); });
    if (!session.Shows(page))
        Skip("dynamic fields", [&] { MakeFieldsOnSurface(session); });
    Skip("field menu", [&] { BuildFieldMenu(session.Face, session.FieldValues); });
    session.Operator.LetEventsRun();
}

/// Why a record gets no card on a page; empty if it gets one.
QString WhyNotPrinted(const RecordPage& record)
{
    const LayoutPage& page = record.Page();
    if (!page.Params.LayoutOpen)
        return record.WhyNone();
    return page.Params.AutoSpool
               ? QString()
               : QStringLiteral("The layout %1 does not print automatically.").arg(page.LayoutName);
}

/// The part of a record's road behind its framing.
void PourAndPrint(Session& session, const RecordPage& record)
{
    LayoutPage& page = record.Page();
    Pour(session, page);
    if (DetectCamImages(page.Document)) {
        // Nobody may answer the question for hours.
        WriteLedger(session);
        Skip("picture question", [&] { AskForPicture(session.Operator); });
    }
    if (const QString reason = WhyNotPrinted(record); reason.isEmpty())
        Skip("card", [&] { PrintCard(session, page); });
    else
        TellWhyNoCard(session, record, reason);
    session.InputBuffer.Clear();
}

void RunActiveMacro(Session& session)
{
    const QString macro = session.Settings.ActiveMacro;
    if (!macro.isEmpty())
        Skip("macro", [&] { RunMacro(session, macro); });
}

void FrameRecord(Session& session, QString text)
{
    session.FieldValues = {};
    session.Face.NotifyRecordBegun();
    session.Operator.LetEventsRun();
    session.InputBuffer.Set(text);
    session.LastRawData = std::move(text);

    Skip("framing",
         [&] { FrameInput(session.InputBuffer, session.Settings, session.FieldValues); });
    NoteValues(session);
}

} // namespace

void ProcessStream(Session& session, QString text)
{
    FrameRecord(session, std::move(text));
    const RecordPage record(session);
    PourAndPrint(session, record);
}

void ProcessStream(Session& session, QString text, const RecordPage& record)
{
    FrameRecord(session, std::move(text));
    PourAndPrint(session, record);
}

void TakeValues(Session& session, const QString& text, const QStringList& values,
                const RecordPage& record)
{
    const RoadHold hold(session.Road);
    session.Face.NotifyRecordBegun();
    session.LastRawData = text;
    session.FieldValues = {};
    for (const QString& value : values)
        session.FieldValues.Add(value);
    PourAndPrint(session, record);
    RunActiveMacro(session);
}

namespace {

RecordOrigin OriginOf(const Session& session, const QString& text, const ArrivalSource& source)
{
    RecordOrigin origin{.Source = source.Peer, .Raw = BytesOfInput(text, session.Options.Encoding)};
    if (session.Options.AnswerHost && source.Answer)
        origin.Told = [answer = source.Answer](const LedgerEntry& entry) {
            answer(AnswerTo(entry));
        };
    return origin;
}

void BufferForSeries(Session& session)
{
    if (session.Settings.BufferData)
        Skip("record queue",
             [&] { BufferRecord(session.RecordQueue, session.Settings, session.LastRawData); });
}

/// Leaves a record to the station's pool: it is framed and shown here, and printed elsewhere.
/// @return false if it must not be taken, because earlier ones cannot be written
bool TakeForPool(Session& session, QString text, const ArrivalSource& source)
{
    RecordLedger& ledger = session.Ledger;
    if (!ledger.Trouble().isEmpty() && ledger.HasManyChanges())
        WriteLedger(session);
    if (!ledger.Trouble().isEmpty() && ledger.HasManyChanges())
        return false;
    const RecordPage record(session, PageKey{session.CurrentLayoutName, 1});
    const QString whyNoCard = WhyNotPrinted(record);
    RecordOrigin origin = OriginOf(session, text, source);
    if (whyNoCard.isEmpty())
        origin.Pool = session.Options.Pool.Name;
    const RecordRoad road(session, std::move(origin));
    FrameRecord(session, std::move(text));
    Pour(session, record.Page());
    if (!whyNoCard.isEmpty())
        TellWhyNoCard(session, record, whyNoCard);
    session.InputBuffer.Clear();
    BufferForSeries(session);
    TellLastArrival(session.Face, source);
    return true;
}

} // namespace

bool TakeRecord(Session& session, QString text, const ArrivalSource& source)
{
    const RoadHold hold(session.Road);
    if (session.Options.Pool.Takes())
        return TakeForPool(session, std::move(text), source);
    RecordRoad road(session, OriginOf(session, text, source));
    if (!road.Secure(text))
        return false;
    ProcessStream(session, std::move(text));
    BufferForSeries(session);
    RunActiveMacro(session);
    TellLastArrival(session.Face, source);
    return true;
}

namespace {

/// A record that must not be taken now stays in the input.
void TakeOrKeep(Session& session, const ArrivalSource& source)
{
    if (!TakeRecord(session, session.InputBuffer.Text(), source))
        session.OfferAgain = [&session, source] { TakeArrival(session, {}, source); };
}

} // namespace

void TakeArrival(Session& session, const QString& characters, const ArrivalSource& source)
{
    // If the copy still shared the buffer's text, appending would copy the whole text.
    session.LastRawData.clear();
    session.InputBuffer.Append(characters);
    session.LastRawData = session.InputBuffer.Text();

    const Delimiters& framing = session.Settings.Framing;
    if (session.InputBuffer.IsComplete(framing.DataStart, framing.DataEnd))
        TakeOrKeep(session, source);
}

} // namespace vantrel
