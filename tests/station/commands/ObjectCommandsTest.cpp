#include "station/commands/ObjectCommands.h"
#include "card/Grips.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/FieldApplication.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

class ObjectCommandTest : public ::testing::Test
{
protected:
    ObjectCommandTest() { BeginLayout(Station.Session, QStringLiteral("Badge")); }

    CardDocument& Document() { return Station.Session.Document; }
    CardObject& Select(CardObject& object)
    {
        Document().SelectedObject = &object;
        Document().SelectedIndex = object.Index();
        Document().SelectedFamily = FamilyName(object.Family());
        ShowHandles(Station.Session.Document, true);
        return object;
    }
    int Fields() { return Document().HighestIndex(Family::lbl_DATA); }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

TEST_F(ObjectCommandTest, DeleteAsksAndTakesTheSelectedObjectOnYesOnly)
{
    Select(AddField(Session, 1));
    Station.Operator.BoxAnswers = {BoxAnswer::No, BoxAnswer::Cancel, BoxAnswer::Yes};
    DeleteSelectedObject(Session);
    DeleteSelectedObject(Session);
    EXPECT_EQ(Fields(), 1);
    EXPECT_TRUE(Document().HandlesShown);
    DeleteSelectedObject(Session);
    EXPECT_EQ(Fields(), 0);
    EXPECT_EQ(Document().SelectedObject, nullptr);
    EXPECT_FALSE(Document().HandlesShown);
    EXPECT_EQ(Station.Operator.Questions.size(), 3);
    EXPECT_EQ(
        Station.Operator.Questions.first(),
        QStringLiteral("Really Delete?|Are you sure you want to delete the selected item?   "));
}

TEST_F(ObjectCommandTest, WithTheDesignToolsTheQuestionNamesTheObjectAndItsDefaultIsNo)
{
    Session.Options.DesignTools = true;
    DeleteSelectedObject(Session);
    EXPECT_EQ(Station.Operator.AppMessages, QStringList());
    Select(AddText(Session, QStringLiteral("Member since\r\n2019")));
    DeleteSelectedObject(Session);
    EXPECT_EQ(
        Station.Operator.AppMessages,
        QStringList{QStringLiteral("Really Delete?|Delete Static Text (Member since 2019)?")});
    EXPECT_EQ(Station.Operator.MessageButtons, std::vector{AppMessageButtons::NoYes});
    EXPECT_EQ(Document().HighestIndex(Family::lbl_TEXT), 1);
    Station.Operator.Answers = {true};
    DeleteSelectedObject(Session);
    EXPECT_EQ(Document().HighestIndex(Family::lbl_TEXT), 0);
    EXPECT_EQ(Station.Operator.Questions, QStringList());
}

TEST_F(ObjectCommandTest, WithTheDesignToolsSeveralObjectsAreNamed)
{
    Session.Options.DesignTools = true;
    CardObject& image = AddImage(Session, Station.WritePng(QStringLiteral("ada.png"), 4, 4));
    Select(AddNumber(Session, 1001));
    Document().AlsoSelected = {&image};
    DeleteSelectedObject(Session);
    EXPECT_EQ(Station.Operator.AppMessages.last(),
              QStringLiteral("Really Delete?|Delete these 2 objects?\r\n"
                             "Image (ada.png)\r\nAutoNumber Field (1001)"));
    Station.Operator.Answers = {true};
    DeleteSelectedObject(Session);
    EXPECT_EQ(Document().HighestIndex(Family::img_LXV), 0);
    EXPECT_EQ(Document().HighestIndex(Family::lbl_AUTO), 0);
}

TEST_F(ObjectCommandTest, WithTheDesignToolsAnAnswerGoesToWhatWasNamedOnly)
{
    Session.Options.DesignTools = true;
    CardObject& other = AddText(Session, QStringLiteral("Other"));
    Select(AddText(Session, QStringLiteral("Named")));
    Station.Operator.Answers = {true};
    Station.Operator.WhileAsked = [&] { Select(other); };
    DeleteSelectedObject(Session);
    EXPECT_EQ(Document().HighestIndex(Family::lbl_TEXT), 2);
}

TEST_F(ObjectCommandTest, WithTheDesignToolsTheQuestionAboutFieldsNamesThem)
{
    Session.Options.DesignTools = true;
    DeleteAllFields(Session);
    EXPECT_EQ(Station.Operator.AppMessages, QStringList());
    for (std::int16_t field = 1; field <= 12; ++field)
        AddField(Session, field);
    DeleteAllFields(Session);
    const QString question = Station.Operator.AppMessages.last();
    EXPECT_TRUE(question.startsWith(
        QStringLiteral("Delete Fields?|Delete all data fields of page 1 of the layout (Badge)?")))
        << question.toStdString();
    EXPECT_TRUE(question.contains(QStringLiteral("Data Field 8\r\nand 4 more")));
    EXPECT_EQ(Station.Operator.MessageButtons.back(), AppMessageButtons::NoYes);
    EXPECT_EQ(Fields(), 12);
    Station.Operator.Answers = {true};
    DeleteAllFields(Session);
    EXPECT_EQ(Fields(), 0);
}

TEST_F(ObjectCommandTest, DeleteWithNothingSelectedAsksAndRemovesNothing)
{
    AddField(Session, 1);
    Station.Operator.BoxAnswers = {BoxAnswer::Yes};
    DeleteSelectedObject(Session);
    EXPECT_EQ(Station.Operator.Questions.size(), 1);
    EXPECT_EQ(Fields(), 1);
}

TEST_F(ObjectCommandTest, DeletesAskNothingWithoutALayout)
{
    Select(AddField(Session, 1));
    Session.CurrentLayoutName.clear();
    Station.Operator.BoxAnswers = {BoxAnswer::Yes};
    DeleteSelectedObject(Session);
    DeleteAllFields(Session);
    EXPECT_EQ(Station.Operator.Questions, QStringList());
    EXPECT_EQ(Fields(), 1);
}

TEST_F(ObjectCommandTest, DeleteAllTakesDataFieldsOnlyAndOnYesOnly)
{
    AddText(Session, QStringLiteral("Visitor"));
    AddField(Session, 1);
    Document().Remove(AddField(Session, 2));
    Select(AddField(Session, 3));
    AddNumber(Session, 1);
    Station.Operator.BoxAnswers = {BoxAnswer::No, BoxAnswer::Yes};
    DeleteAllFields(Session);
    EXPECT_EQ(Fields(), 2);
    DeleteAllFields(Session);
    EXPECT_EQ(Fields(), 0);
    EXPECT_NE(Document().Find(Family::lbl_DATA, 0), nullptr);
    EXPECT_EQ(Document().HighestIndex(Family::lbl_TEXT), 1);
    EXPECT_EQ(Document().HighestIndex(Family::lbl_AUTO), 1);
    EXPECT_EQ(Document().SelectedObject, nullptr);
    EXPECT_FALSE(Document().HandlesShown);
    EXPECT_EQ(Station.Operator.Questions.first(),
              QStringLiteral("Delete Fields?|Are you absolutely sure you want to delete all of "
                             "the existing data fields?"));
}

TEST_F(ObjectCommandTest, DeleteAllAsksEvenWithoutAFieldAndRemovesNothing)
{
    AddText(Session, QStringLiteral("Visitor"));
    const std::size_t objects = Document().Objects().size();
    Station.Operator.BoxAnswers = {BoxAnswer::Yes};
    DeleteAllFields(Session);
    EXPECT_EQ(Station.Operator.Questions.size(), 1);
    EXPECT_EQ(Document().Objects().size(), objects);
}

TEST_F(ObjectCommandTest, SizeStepsAddUpAndKeepTheUpperLeftCorner)
{
    CardObject& object = Select(AddField(Session, 1, {200, 300, 300, 1500}));
    IncreaseSize(Session);
    EXPECT_EQ(object.Width, 1650.0F);
    EXPECT_EQ(object.Height, 330.0F);
    IncreaseSize(Session);
    EXPECT_EQ(object.Width, 1815.0F);
    EXPECT_EQ(object.Height, 363.0F);
    DecreaseSize(Session);
    EXPECT_EQ(object.Width, 1633.5F);
    EXPECT_EQ(object.Height, static_cast<float>(363.0 - 363.0 * 0.1));
    EXPECT_EQ(object.Top, 200.0F);
    EXPECT_EQ(object.Left, 300.0F);
    EXPECT_TRUE(Document().HandlesShown);
}

TEST_F(ObjectCommandTest, SizesGoByFamilyAndIndexAndFailWithoutTheElement)
{
    CardObject& object = Select(AddImage(Session, QString(), {200, 300, 300, 1500}));
    Document().SelectedObject = nullptr;
    IncreaseSize(Session);
    EXPECT_EQ(object.Width, 1650.0F);
    Document().SelectedIndex = 7;
    EXPECT_EQ(FailureOf([&] { DecreaseSize(Session); }), FailureNumber::NoSuchElement);
    Document().SelectedFamily.clear();
    EXPECT_EQ(FailureOf([&] { ToggleMod10(Session); }), FailureNumber::NoSuchElement);
}

TEST_F(ObjectCommandTest, OnlyOneCheckDigitWordIsSetAtATime)
{
    CardObject& object = Select(AddField(Session, 1));
    EXPECT_EQ(object.DataMember, QStringLiteral("False"));
    ToggleMod10(Session);
    EXPECT_EQ(object.DataMember, QStringLiteral("MOD10"));
    ToggleMod10(Session);
    EXPECT_EQ(object.DataMember, QString());
    ToggleMod10(Session);
    ToggleCodabar(Session);
    EXPECT_EQ(object.DataMember, QStringLiteral("CODABAR"));
    ToggleEbt(Session);
    EXPECT_EQ(object.DataMember, QStringLiteral("EBT"));
    ToggleEbt(Session);
    EXPECT_EQ(object.DataMember, QString());
}

TEST_F(ObjectCommandTest, AlignmentTicksOneAndGoesToTheSelection)
{
    struct Row
    {
        void (*Command)(vantrel::Session&);
        Tick Ticked;
        int Alignment;
    };
    const Row rows[] = {{AlignLeft, Tick::cmdALeft, 0},
                        {AlignCenter, Tick::cmdACenter, 2},
                        {AlignRight, Tick::cmdARight, 1}};
    CardObject& object = Select(AddField(Session, 1));
    for (const Row& row : rows) {
        row.Command(Session);
        EXPECT_EQ(object.Alignment, row.Alignment);
        for (const Row& other : rows)
            EXPECT_EQ(Session.Face.IsTicked(other.Ticked), other.Ticked == row.Ticked);
    }
    Document().SelectedObject = nullptr;
    AlignLeft(Session);
    EXPECT_TRUE(Session.Face.IsTicked(Tick::cmdALeft));
    EXPECT_EQ(object.Alignment, 1);
}

TEST_F(ObjectCommandTest, AnEmptyTextKeepsTheOldOne)
{
    CardObject& text = Select(AddText(Session, QStringLiteral("Visitor")));
    Station.Operator.Inputs = {QString(), QStringLiteral("Guest")};
    AdjustText(Session);
    EXPECT_EQ(text.Caption(), QStringLiteral("Visitor"));
    AdjustText(Session);
    EXPECT_EQ(text.Caption(), QStringLiteral("Guest"));
    EXPECT_EQ(Station.Operator.InputBoxes.first(),
              QStringLiteral("|Please enter the text you wish to display|Visitor"));
}

TEST_F(ObjectCommandTest, TheColourDialogOpensOnTheTextsColour)
{
    CardObject& text = Select(AddText(Session, QStringLiteral("Visitor")));
    text.ForeColor = 0x0000FF;
    AdjustTextColor(Session);
    EXPECT_EQ(text.ForeColor, 0x0000FF);
    Station.Operator.Colors = {0x563412};
    AdjustTextColor(Session);
    EXPECT_EQ(text.ForeColor, 0x563412);
    EXPECT_EQ(Station.Operator.ColorsShown, (std::vector<ColorValue>{0x0000FF, 0x0000FF}));
}

TEST_F(ObjectCommandTest, TheFontDialogTakesAndGivesSixValues)
{
    const Font before{QStringLiteral("Liberation Sans"), 12.5, true, false, true, false};
    const Font after{QStringLiteral("DejaVu Sans"), 8.25, false, true, false, true};
    CardObject& text = Select(AddText(Session, QStringLiteral("Visitor")));
    text.SetFont(before);
    AdjustFont(Session);
    EXPECT_EQ(text.Font(), before);
    Station.Operator.Fonts = {after};
    AdjustFont(Session);
    EXPECT_EQ(text.Font(), after);
    EXPECT_EQ(Station.Operator.FontsShown, (std::vector<Font>{before, before}));
}

TEST_F(ObjectCommandTest, AdjustingWithoutASelectionFailsExceptForTheFont)
{
    AddText(Session, QStringLiteral("Visitor"));
    EXPECT_EQ(FailureOf([&] { AdjustText(Session); }), FailureNumber::ObjectNotSet);
    EXPECT_EQ(FailureOf([&] { AdjustTextColor(Session); }), FailureNumber::ObjectNotSet);
    EXPECT_EQ(FailureOf([&] { AdjustFont(Session); }), 0);
    Select(AddImage(Session, QString()));
    EXPECT_EQ(FailureOf([&] { AdjustFont(Session); }), 0);
    EXPECT_TRUE(Station.Operator.FontsShown.empty());
}

TEST_F(ObjectCommandTest, AnObjectThatGoesWhileItIsAskedForIsLeftAlone)
{
    for (void (*command)(vantrel::Session&) : {AdjustText, AdjustTextColor, AdjustFont}) {
        Select(AddText(Session, QStringLiteral("Visitor")));
        Station.Operator.Inputs = {QStringLiteral("Guest")};
        Station.Operator.Colors = {1};
        Station.Operator.Fonts = {Font{}};
        Station.Operator.WhileAsked = [&] { Document().RemoveContent(); };
        EXPECT_EQ(FailureOf([&] { command(Session); }), 0);
    }
    Select(AddField(Session, 1));
    Station.Operator.BoxAnswers = {BoxAnswer::Yes};
    DeleteSelectedObject(Session);
    EXPECT_EQ(Document().HighestIndex(Family::lbl_TEXT), 0);
}

/// Checks once more the object it was opened on, after its dialog has been open for a while.
class SlowOperator : public TestOperator
{
public:
    std::optional<Font> AskFont(const Font& present) override
    {
        WhileAsked();
        return present;
    }
    QString InputBox(const QString& /*prompt*/, const QString& /*title*/,
                     const QString& present) override
    {
        WhileAsked();
        return present;
    }
};

TEST_F(ObjectCommandTest, ADialogKeepsWhatItWasOpenedOn)
{
    SlowOperator slow;
    vantrel::Session session(Session.ProgramFolder, slow, Station.Printers);
    BeginLayout(session, QStringLiteral("Badge"));
    CardObject& text = AddText(session, QStringLiteral("Visitor"));
    session.Document.SelectedObject = &text;
    const Font before{QStringLiteral("Liberation Sans"), 12.5, true, false, true, false};
    text.SetFont(before);
    slow.WhileAsked = [&] {
        text.SetFont(Font{});
        text.SetCaption(QStringLiteral("Guest"));
    };
    AdjustFont(session);
    EXPECT_EQ(text.Font(), before);
    text.SetCaption(QStringLiteral("Visitor"));
    AdjustText(session);
    EXPECT_EQ(text.Caption(), QStringLiteral("Visitor"));
}

TEST_F(ObjectCommandTest, VisibleOnCardIsATickAndNothingMore)
{
    const CardObject& text = Select(AddText(Session, QStringLiteral("Visitor")));
    ToggleVisibleOnCard(Session);
    EXPECT_TRUE(Session.Face.IsTicked(Tick::cmdVisibleOnCard));
    EXPECT_TRUE(text.Visible);
    ToggleVisibleOnCard(Session);
    EXPECT_FALSE(Session.Face.IsTicked(Tick::cmdVisibleOnCard));
    EXPECT_TRUE(text.Visible);
}

TEST_F(ObjectCommandTest, AChosenDataFieldShowsItsValueOrThePlaceholder)
{
    SetRecord(Session, {QStringLiteral("Anna"), QString(), QStringLiteral("12-34")});
    CardObject& field = Select(AddField(Session, 1));
    field.Tag = QStringLiteral("-");
    ChooseDataField(Session, 3);
    EXPECT_EQ(field.DataField, QStringLiteral("3"));
    EXPECT_EQ(field.Caption(), QStringLiteral("1234"));
    ChooseDataField(Session, 2);
    EXPECT_EQ(field.DataField, QStringLiteral("2"));
    EXPECT_EQ(field.Caption(), QStringLiteral("Data Field 2"));
    EXPECT_EQ(FailureOf([&] { ChooseDataField(Session, 4); }), FailureNumber::SubscriptOutOfRange);
    EXPECT_EQ(field.DataField, QStringLiteral("2"));
}

TEST_F(ObjectCommandTest, TheFieldViewerChangesNoObject)
{
    SetRecord(Session, {QStringLiteral("Anna"), QStringLiteral("Bo")});
    const CardObject& field = Select(AddField(Session, 1));
    std::vector<PopUp> opened;
    QObject::connect(&Session.Face, &StationFace::PopUpAsked,
                     [&](PopUp menu) { opened.push_back(menu); });
    ShowFieldData(Session);
    EXPECT_EQ(opened, std::vector<PopUp>{PopUp::mnuDataFields});
    EXPECT_EQ(Station.Operator.EventsRuns, 1);
    EXPECT_FALSE(Document().HandlesShown);
    EXPECT_EQ(Document().SelectedFamily, QString());
    ChooseDataField(Session, 2);
    EXPECT_EQ(field.DataField, QStringLiteral("1"));
}

TEST_F(ObjectCommandTest, ClearingEmptiesTheCaptionsOfDataFieldsOnly)
{
    CardObject& text = AddText(Session, QStringLiteral("Visitor"));
    AddField(Session, 1);
    Document().Remove(AddField(Session, 2));
    AddField(Session, 3);
    Document().Find(Family::lbl_DATA, 0)->SetCaption(QStringLiteral("template"));
    ClearDataFields(Session);
    for (const int index : {0, 1, 2})
        EXPECT_EQ(Document().Find(Family::lbl_DATA, index)->Caption(), QString());
    EXPECT_EQ(text.Caption(), QStringLiteral("Visitor"));
}

} // namespace
} // namespace vantrel::test
