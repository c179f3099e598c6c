#include "station/layout/FieldApplication.h"
#include "base/Convert.h"
#include "base/NumberFormat.h"
#include "base/Skip.h"
#include "card/PourValues.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

/// Vertical distance of the fields that a record creates, in twips.
constexpr int DynamicFieldStep = 320;
constexpr int DynamicFieldLeft = 200;
constexpr int DynamicFieldHeight = 300;
constexpr int DynamicFieldWidth = 2500;

void MakeDynamicField(Session& session, int valueIndex, int fieldNumber, const QString& value)
{
    const QString number = QString::number(valueIndex);
    const ObjectBox box{.cTop = fieldNumber * DynamicFieldStep,
                        .cLeft = DynamicFieldLeft,
                        .cHeight = DynamicFieldHeight,
                        .cWidth = DynamicFieldWidth};
    TextLooks looks;
    looks.cBackStyle = 0;
    looks.cCaption = QStringLiteral("Data Field ") + number;
    Draw_DataField(OpenForm(session), ToInteger(number), box, looks).SetCaption(value);
}

// Creates the fields. The first values, as many as the page has camera objects, get no field.
void MakeDynamicFields(Session& session)
{
    int fieldsMade = 0;
    const int first = session.Document.HighestIndex(Family::img_CAM) + 1;
    for (int index = first; index <= session.FieldValues.Count(); ++index) {
        const QString value = session.FieldValues.Item(index);
        if (value.isEmpty())
            continue;
        ++fieldsMade;
        Skip("dynamic field", [&] { MakeDynamicField(session, index, fieldsMade, value); });
    }
}

/// For one record only; the stored key keeps its value until the station ends.
void EndDynamicFields(Session& session)
{
    session.Settings.DynamicFields = false;
    session.Face.SetTick(Tick::chkAutoAdd, false);
    session.Document.Refresh();
}

} // namespace

void ReapplyFieldValues(Session& session, LayoutPage& page)
{
    Skip("document", [&] { EnsureDocument(session, page); });
    const QChar separator = MachineDecimalSeparator();
    FillDataFields(page.Document, session.FieldValues, separator);
    CheckAutoNumbers(page.Document, separator);
    FillCameraImages(page.Document, session.CameraImage);
    FillRecordPictures(page.Document, session.FieldValues, session.Pictures);
    if (!session.Shows(page))
        return;
    if (session.Settings.DynamicFields)
        MakeDynamicFields(session);
    EndDynamicFields(session);
}

void ReapplyFieldValues(Session& session)
{
    ReapplyFieldValues(session, session.Surface);
}

void FillSurface(Session& session)
{
    if (!session.Options.DesignTools) {
        ReapplyFieldValues(session);
        return;
    }
    CheckAutoNumbers(session.Document, MachineDecimalSeparator());
    if (session.CameraImage.HasHandle())
        FillCameraImages(session.Document, session.CameraImage);
    session.Document.Refresh();
}

void MakeFieldsOnSurface(Session& session)
{
    if (!session.Settings.DynamicFields)
        return;
    NoteDesign(session);
    MakeDynamicFields(session);
    EndDynamicFields(session);
    NoteDesign(session);
}

void BuildFieldMenu(StationFace& face, const FieldValues& values)
{
    FieldMenu menu;
    menu.Values = values;
    // Without values the entry for sending is unchanged; otherwise it is visible for a single value
    // only.
    menu.SendEntryVisible = menu.Count() == 0 ? face.Fields().SendEntryVisible : menu.Count() == 1;
    face.SetFields(menu);
}

} // namespace vantrel
