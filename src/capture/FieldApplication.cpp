#include "capture/FieldApplication.h"
#include "app/Session.h"
#include "capture/ValueShaping.h"
#include "layout/DocumentForm.h"
#include "layout/DrawObjects.h"
#include "platform/Convert.h"
#include "platform/NumberFormat.h"
#include "platform/Skip.h"

namespace vantrel {

namespace {

/// Where the fields that a record makes for itself stand, in twips.
constexpr int DynamicFieldStep = 320;
constexpr int DynamicFieldLeft = 200;
constexpr int DynamicFieldHeight = 300;
constexpr int DynamicFieldWidth = 2500;

void FillDataFields(Session& session)
{
    CarriedValue carried;
    const int highest = session.Document.HighestIndex(Family::lbl_DATA);
    for (int index = 1; index <= highest; ++index) {
        if (CardObject* field = session.Document.Find(Family::lbl_DATA, index))
            field->SetCaption(
                ShapeDataField(*field, session.FieldValues, MachineDecimalSeparator(), carried));
    }
}

// Whatever an earlier pass appended counts as part of the number.
void AppendCheckDigit(CardObject& number, QChar decimalSeparator)
{
    const QString caption = number.Caption();
    QString text = caption;
    if (const auto digit = CheckDigitByWord(number.DataMember, text, decimalSeparator))
        number.SetCaption(caption + *digit);
}

void CheckAutoNumbers(CardDocument& document)
{
    const int highest = document.HighestIndex(Family::lbl_AUTO);
    for (int index = 0; index <= highest; ++index) {
        if (CardObject* number = document.Find(Family::lbl_AUTO, index))
            Skip("check digit of a number",
                 [&] { AppendCheckDigit(*number, MachineDecimalSeparator()); });
    }
}

void FillCameraImages(Session& session)
{
    const int highest = session.Document.HighestIndex(Family::img_CAM);
    for (int index = 1; index <= highest; ++index) {
        if (CardObject* image = session.Document.Find(Family::img_CAM, index))
            image->Picture = session.CameraImage;
    }
}

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
    Draw_DataField(session, ToInteger(number), box, looks).SetCaption(value);
}

// As many values as the page has camera objects make no field: the count goes on behind them.
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

} // namespace

void ReapplyFieldValues(Session& session)
{
    Skip("document", [&] { EnsureDocument(session); });
    FillDataFields(session);
    CheckAutoNumbers(session.Document);
    FillCameraImages(session);
    if (session.Settings.DynamicFields)
        MakeDynamicFields(session);
    // One record only; the stored key keeps its value until the station ends.
    session.Settings.DynamicFields = false;
    session.Face.SetTick(Tick::chkAutoAdd, false);
    session.Document.Refresh();
}

void BuildFieldMenu(Session& session)
{
    FieldMenu menu;
    menu.Values = session.FieldValues;
    // With no values the entry for sending stays as it was; else it goes by the last one made.
    menu.SendEntryVisible =
        menu.Count() == 0 ? session.Face.Fields().SendEntryVisible : menu.Count() == 1;
    session.Face.SetFields(menu);
}

} // namespace vantrel
