#include "station/layout/FieldApplication.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

using namespace vantrel;
using namespace vantrel::test;

namespace {

class FieldApplication : public ::testing::Test
{
protected:
    /// The captions of a family, from element 1 on.
    QStringList Captions(Family family)
    {
        QStringList captions;
        for (int index = 1; index <= Session.Document.HighestIndex(family); ++index) {
            if (const CardObject* object = Session.Document.Find(family, index))
                captions.append(object->Caption());
        }
        return captions;
    }

    void Apply(const QStringList& values)
    {
        SetRecord(Session, values);
        ReapplyFieldValues(Session);
    }

    CardObject& AddCamera() { return Draw_CamView(OpenForm(Session), {}, 0, Picture(), true, {}); }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

QString Data(int number)
{
    return QStringLiteral("Data Field %1").arg(number);
}

} // namespace

TEST_F(FieldApplication, AThirdFieldRepeatsTheLastOfTwoValues)
{
    AddField(Session, 1);
    AddField(Session, 2);
    AddField(Session, 3).ToolTipText = QStringLiteral("No. \r.");
    Apply({QStringLiteral("A"), QStringLiteral("B")});
    EXPECT_EQ(Captions(Family::lbl_DATA),
              (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("No. B.")}));
}

TEST_F(FieldApplication, CarryOverFollowsTheOrderOfTheObjects)
{
    AddField(Session, 2);
    AddField(Session, 9);
    AddField(Session, 1);
    Apply({QStringLiteral("A"), QStringLiteral("B")});
    EXPECT_EQ(Captions(Family::lbl_DATA),
              (QStringList{QStringLiteral("B"), QStringLiteral("B"), QStringLiteral("A")}));
}

TEST_F(FieldApplication, CarryOverStartsEmptyInEachPass)
{
    AddField(Session, 2).ToolTipText = QStringLiteral("(\r)");
    Apply({QStringLiteral("A"), QStringLiteral("B")});
    EXPECT_EQ(Captions(Family::lbl_DATA), QStringList{QStringLiteral("(B)")});
    Session.Document.Find(Family::lbl_DATA, 1)->ToolTipText.clear();
    Apply({QStringLiteral("A"), QStringLiteral("C")});
    EXPECT_EQ(Captions(Family::lbl_DATA), QStringList{QStringLiteral("C")});
    Apply({QStringLiteral("A")});
    EXPECT_EQ(Captions(Family::lbl_DATA), QStringList{Data(2)});
}

TEST_F(FieldApplication, GapLeftByADeletedFieldIsPassedOver)
{
    AddField(Session, 1);
    CardObject& deleted = AddField(Session, 1);
    AddField(Session, 2);
    Session.Document.Remove(deleted);
    Apply({QStringLiteral("A")});
    EXPECT_EQ(Captions(Family::lbl_DATA), (QStringList{QStringLiteral("A"), QStringLiteral("A")}));
}

TEST_F(FieldApplication, RecordWithoutValuesShowsEveryPlaceholder)
{
    AddField(Session, 1);
    AddField(Session, 2);
    Apply({QStringLiteral("A"), QStringLiteral("B")});
    Apply({});
    EXPECT_EQ(Captions(Family::lbl_DATA), (QStringList{Data(1), Data(2)}));
}

TEST_F(FieldApplication, FilterCharactersAreTakenFromTheWholeCaption)
{
    CardObject& field = AddField(Session, 1);
    field.Tag = QStringLiteral("A7");
    field.ToolTipText = QStringLiteral("A-\r-AZ");
    field.DataMember = QStringLiteral("MOD10");
    Apply({QStringLiteral("12345")});
    EXPECT_EQ(Captions(Family::lbl_DATA), QStringList{QStringLiteral("-12345-Z")});
}

TEST_F(FieldApplication, FilterCharactersAreTakenFromThePlaceholder)
{
    AddField(Session, 1).Tag = QStringLiteral("1");
    Apply({QStringLiteral("111")});
    EXPECT_EQ(Captions(Family::lbl_DATA), QStringList{QStringLiteral("Data Field ")});
}

TEST_F(FieldApplication, StaticTextIsLeftAlone)
{
    AddText(Session, QStringLiteral("Name"));
    Apply({QStringLiteral("A")});
    EXPECT_EQ(Captions(Family::lbl_TEXT), QStringList{QStringLiteral("Name")});
}

TEST_F(FieldApplication, NumberGetsTheCheckDigitOfItsCaption)
{
    AddNumber(Session, 12345).DataMember = QStringLiteral("MOD10");
    AddNumber(Session, 1234).DataMember = QStringLiteral("CODABAR");
    AddNumber(Session, 1234).DataMember = QStringLiteral("EBT");
    AddNumber(Session, 1234).DataMember = QStringLiteral("False");
    Apply({});
    EXPECT_EQ(Captions(Family::lbl_AUTO),
              (QStringList{QStringLiteral("123457"), QStringLiteral("12344"),
                           QStringLiteral("12346"), QStringLiteral("1234")}));
}

TEST_F(FieldApplication, SecondPassAddsASecondDigitToANumber)
{
    AddNumber(Session, 1).DataMember = QStringLiteral("MOD10");
    Apply({});
    EXPECT_EQ(Captions(Family::lbl_AUTO), QStringList{QStringLiteral("17")});
    Apply({});
    EXPECT_EQ(Captions(Family::lbl_AUTO), QStringList{QStringLiteral("170")});
}

TEST_F(FieldApplication, TemplateOfTheNumbersIsWalkedToo)
{
    AddNumber(Session, 1);
    CardObject& model = *Session.Document.Find(Family::lbl_AUTO, 0);
    model.SetCaption(QStringLiteral("1"));
    model.DataMember = QStringLiteral("MOD10");
    // The tag of the template marks it as no card content, and the same tag filters its caption.
    model.Tag.clear();
    Apply({});
    EXPECT_EQ(model.Caption(), QStringLiteral("17"));
}

TEST_F(FieldApplication, NumberThatItsSchemeCannotReadStaysAndTheNextIsDone)
{
    CardObject& unreadable = AddNumber(Session, 1);
    unreadable.DataMember = QStringLiteral("EBT");
    unreadable.SetCaption(QStringLiteral("No. 1"));
    AddNumber(Session, 1).DataMember = QStringLiteral("MOD10");
    Apply({});
    EXPECT_EQ(Captions(Family::lbl_AUTO),
              (QStringList{QStringLiteral("No. 1"), QStringLiteral("17")}));
}

TEST_F(FieldApplication, NumberGetsNoPrefixAndFiltersItsWholeCaption)
{
    CardObject& number = AddNumber(Session, 12);
    number.ToolTipText = QStringLiteral("A\rZ");
    number.DataMember = QStringLiteral("MOD10");
    number.Tag = QStringLiteral("1");
    Apply({});
    EXPECT_EQ(Captions(Family::lbl_AUTO), QStringList{QStringLiteral("25")});
}

TEST_F(FieldApplication, EveryCameraObjectGetsTheCameraImage)
{
    QImage pixels(4, 3, QImage::Format_RGB32);
    pixels.fill(0xFF336699U);
    Session.CameraImage = Picture::FromImage(pixels);
    AddCamera();
    AddCamera();
    Apply({});
    EXPECT_EQ(Session.Document.Find(Family::img_CAM, 1)->Picture, Session.CameraImage);
    EXPECT_EQ(Session.Document.Find(Family::img_CAM, 2)->Picture, Session.CameraImage);
}

TEST_F(FieldApplication, CameraObjectIsEmptyUntilAPictureWasTaken)
{
    EXPECT_TRUE(AddCamera().Picture.HasHandle());
    Apply({});
    EXPECT_FALSE(Session.Document.Find(Family::img_CAM, 1)->Picture.HasHandle());
}

TEST_F(FieldApplication, NoLayoutOpenDoesNothingButMakeTheForm)
{
    Apply({QStringLiteral("A")});
    EXPECT_TRUE(Session.Document.IsLoaded());
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_DATA), 0);
    EXPECT_NE(Session.Document.Find(Family::lbl_DATA, 0)->Caption(), QStringLiteral("A"));
}

TEST_F(FieldApplication, DocumentIsPaintedAnew)
{
    AddField(Session, 1);
    int paints = 0;
    QObject::connect(&Session.Document, &CardDocument::Changed, &Session.Document,
                     [&] { ++paints; });
    Apply({QStringLiteral("A")});
    EXPECT_GE(paints, 1);
}

TEST_F(FieldApplication, DynamicFieldsAreMadeOfTheValues)
{
    Session.Settings.DynamicFields = true;
    Apply({QStringLiteral("A"), QStringLiteral("B")});
    EXPECT_EQ(Captions(Family::lbl_DATA), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));

    const CardObject& second = *Session.Document.Find(Family::lbl_DATA, 2);
    EXPECT_EQ(second.DataField, QStringLiteral("2"));
    EXPECT_EQ(second.Top, 640.0F);
    EXPECT_EQ(second.Left, 200.0F);
    EXPECT_EQ(second.Height, 300.0F);
    EXPECT_EQ(second.Width, 2500.0F);
    EXPECT_EQ(second.BackColor, ColorValue{16777215});
    EXPECT_EQ(second.ForeColor, ColorValue{0});
    EXPECT_EQ(second.BorderStyle, 1);
    EXPECT_EQ(second.Appearance, 0);
    EXPECT_EQ(second.BackStyle, 0);
    EXPECT_EQ(second.Font(), vantrel::Font());
    EXPECT_TRUE(second.Visible);
}

TEST_F(FieldApplication, EmptyValueMakesNoDynamicFieldAndTheNextClosesUp)
{
    Session.Settings.DynamicFields = true;
    Apply({QStringLiteral("A"), QString(), QStringLiteral("C")});
    EXPECT_EQ(Captions(Family::lbl_DATA), (QStringList{QStringLiteral("A"), QStringLiteral("C")}));
    const CardObject& second = *Session.Document.Find(Family::lbl_DATA, 2);
    EXPECT_EQ(second.DataField, QStringLiteral("3"));
    EXPECT_EQ(second.Top, 640.0F);
}

TEST_F(FieldApplication, CameraObjectsShiftTheFirstDynamicField)
{
    AddCamera();
    AddCamera();
    Session.Settings.DynamicFields = true;
    Apply({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    EXPECT_EQ(Captions(Family::lbl_DATA), QStringList{QStringLiteral("C")});
    const CardObject& only = *Session.Document.Find(Family::lbl_DATA, 1);
    EXPECT_EQ(only.DataField, QStringLiteral("3"));
    EXPECT_EQ(only.Top, 320.0F);
}

TEST_F(FieldApplication, SecondUseAddsASecondSetOfFields)
{
    Session.Settings.DynamicFields = true;
    Apply({QStringLiteral("A")});
    Session.Settings.DynamicFields = true;
    Apply({QStringLiteral("B")});
    EXPECT_EQ(Captions(Family::lbl_DATA), (QStringList{QStringLiteral("B"), QStringLiteral("B")}));
}

TEST_F(FieldApplication, DynamicFieldsTurnThemselvesOff)
{
    Session.Settings.DynamicFields = true;
    Session.Face.SetTick(Tick::chkAutoAdd, true);
    Apply({QStringLiteral("A")});
    EXPECT_FALSE(Session.Settings.DynamicFields);
    EXPECT_FALSE(Session.Face.IsTicked(Tick::chkAutoAdd));
    Apply({QStringLiteral("B")});
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_DATA), 1);
}

TEST_F(FieldApplication, TheTickIsRemovedEvenIfNoFieldWasMade)
{
    Session.Face.SetTick(Tick::chkAutoAdd, true);
    Apply({});
    EXPECT_FALSE(Session.Face.IsTicked(Tick::chkAutoAdd));
}
