#include "capture/Pipeline.h"
#include "app/Operator.h"
#include "app/Session.h"
#include "capture/FieldApplication.h"
#include "capture/Framing.h"
#include "layout/DrawObjects.h"
#include "macro/RunMacro.h"
#include "platform/Skip.h"
#include "print/PrintCard.h"

namespace vantrel {

namespace {

constexpr int LastArrivalPanel = 3;

// The buffer keeps the text between the delimiters until the record is done; what arrives meanwhile
// is appended to that.
QStringList FrameInput(Session& session)
{
    QString text = session.InputBuffer.Text();
    QStringList values = ParseDataStream(text, session.Settings.Framing, session.Settings.Filters);
    session.InputBuffer.Set(text);
    return values;
}

// The dialog is not waited for: the card of this record gets the picture that stood before.
void AskForPicture(Session& session)
{
    if (session.Operator.AskYesNo(QStringLiteral("     Take Picture Now?           "),
                                  QStringLiteral("Take Picture")))
        session.Operator.OpenCameraDialog();
}

void TellLastArrival(Session& session, const ArrivalSource& source)
{
    session.Face.SetPanelText(LastArrivalPanel, source.Panel);
    session.Face.SetPanelToolTip(LastArrivalPanel,
                                 QStringLiteral("Data last received from (%1)").arg(source.From));
}

} // namespace

void ProcessStream(Session& session, QString text)
{
    session.FieldValues = {};
    session.Face.TellRecordBegun();
    session.Operator.LetEventsRun();
    session.InputBuffer.Set(text);
    session.LastRawData = std::move(text);

    QStringList values;
    Skip("framing", [&] { values = FrameInput(session); });
    for (const QString& value : std::as_const(values))
        session.FieldValues.Add(value);

    Skip("field application", [&] { ReapplyFieldValues(session); });
    Skip("field menu", [&] { BuildFieldMenu(session); });
    session.Operator.LetEventsRun();
    if (DetectCamImages(session))
        Skip("picture question", [&] { AskForPicture(session); });
    if (session.CurrentParams.LayoutOpen && session.CurrentParams.AutoSpool)
        Skip("card", [&] { PrintCard(session); });
    session.InputBuffer.Clear();
}

void TakeArrival(Session& session, const QString& characters, const ArrivalSource& source)
{
    // While the copy shares the buffer's text, appending would copy all that came before.
    session.LastRawData.clear();
    session.InputBuffer.Append(characters);
    session.LastRawData = session.InputBuffer.Text();

    const Delimiters& framing = session.Settings.Framing;
    if (!session.InputBuffer.IsComplete(framing.DataStart, framing.DataEnd))
        return;
    ProcessStream(session, session.InputBuffer.Text());
    if (session.Settings.BufferData)
        Skip("record queue", [&] { BufferRecord(session, session.LastRawData); });
    if (!session.Settings.ActiveMacro.isEmpty()) {
        const QString macro = session.Settings.ActiveMacro;
        Skip("macro", [&] { RunMacro(session, macro); });
    }
    TellLastArrival(session, source);
}

} // namespace vantrel
