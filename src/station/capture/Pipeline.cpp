#include "station/capture/Pipeline.h"
#include "base/Skip.h"
#include "ports/FramedValues.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/FieldApplication.h"
#include "station/macro/RunMacro.h"
#include "station/print/PrintCard.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

constexpr int LastArrivalPanel = 3;

// The buffer keeps the text between the delimiters until the record is processed; characters that
// arrive in the meantime are appended to it.
void FrameInput(InputBuffer& input, const StationSettings& settings, FieldValues& values)
{
    QString text = input.Text();
    ParseDataStream(text, settings.Framing, settings.Filters,
                    [&](const QString& value) { values.Add(value); });
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

} // namespace

void ProcessStream(Session& session, QString text)
{
    session.FieldValues = {};
    session.Face.NotifyRecordBegun();
    session.Operator.LetEventsRun();
    session.InputBuffer.Set(text);
    session.LastRawData = std::move(text);

    Skip("framing",
         [&] { FrameInput(session.InputBuffer, session.Settings, session.FieldValues); });

    Skip("field application", [&] { ReapplyFieldValues(session); });
    Skip("field menu", [&] { BuildFieldMenu(session.Face, session.FieldValues); });
    session.Operator.LetEventsRun();
    if (DetectCamImages(session.Document))
        Skip("picture question", [&] { AskForPicture(session.Operator); });
    if (session.CurrentParams.LayoutOpen && session.CurrentParams.AutoSpool)
        Skip("card", [&] { PrintCard(session); });
    session.InputBuffer.Clear();
}

void TakeArrival(Session& session, const QString& characters, const ArrivalSource& source)
{
    // If the copy still shared the buffer's text, appending would copy the whole text.
    session.LastRawData.clear();
    session.InputBuffer.Append(characters);
    session.LastRawData = session.InputBuffer.Text();

    const Delimiters& framing = session.Settings.Framing;
    if (!session.InputBuffer.IsComplete(framing.DataStart, framing.DataEnd))
        return;
    ProcessStream(session, session.InputBuffer.Text());
    if (session.Settings.BufferData)
        Skip("record queue",
             [&] { BufferRecord(session.RecordQueue, session.Settings, session.LastRawData); });
    if (!session.Settings.ActiveMacro.isEmpty()) {
        const QString macro = session.Settings.ActiveMacro;
        Skip("macro", [&] { RunMacro(session, macro); });
    }
    TellLastArrival(session.Face, source);
}

} // namespace vantrel
