#include "station/commands/ClipCommands.h"
#include "card/ObjectExtras.h"
#include "station/commands/ArrangeCommands.h"
#include "station/commands/ObjectCommands.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/NewLayout.h"
#include "support/Layouts.h"
#include "support/PageText.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

class Clip : public ::testing::Test
{
protected:
    Clip()
    {
        Station.WithDatabase();
        Session.Options.DesignTools = true;
        BeginLayout(Session, QStringLiteral("Badge"));
        NoteDesign(Session);
    }

    void Select(const std::vector<CardObject*>& objects)
    {
        SelectObjects(Session.Document, Session.Face, objects);
    }
    /// One object of each kind, with every property changed.
    std::vector<CardObject*> OneOfEach()
    {
        CardObject& text = AddText(Session, QStringLiteral("Visitor"));
        text.SetFont({.Name = QStringLiteral("Serif"), .Size = 12.25, .Bold = true});
        text.ForeColor = 0xFF00;
        text.Left = 123.5F;
        CardObject& field = AddField(Session, 3, {500, 200, 300, 900});
        field.Tag = QStringLiteral("-/");
        field.ToolTipText = QStringLiteral("No. \r.");
        field.DataMember = QStringLiteral("MOD10");
        field.Alignment = 2;
        SetShrinkTo(field, 5.5);
        CardObject& number = AddNumber(Session, 41, {900, 200, 300, 1500});
        CardObject& image = AddImage(Session, Picture, {1300, 200, 500, 400});
        image.Picture = LoadPicture(Picture);
        return {&text, &field, &number, &image};
    }
    int Count() const
    {
        int count = 0;
        for (const auto& object : Session.Document.Objects())
            count += object->IsContent() ? 1 : 0;
        return count;
    }
    /// The page's objects without their indexes.
    QStringList Objects() const
    {
        QStringList lines = PageText(Session).split(u'\n');
        lines.resize(Count());
        for (QString& line : lines)
            line.remove(line.indexOf(u' '), 2);
        return lines;
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
    const QString Picture = Station.WritePng(QStringLiteral("photo.png"), 40, 30);
};

TEST_F(Clip, BringsEveryKindOfObjectToAnotherLayoutAsItIs)
{
    Select(OneOfEach());
    const QStringList before = Objects();
    const QByteArray copied = CopySelected(Session);
    NewLayout(Session, QStringLiteral("Other"));
    EXPECT_EQ(Count(), 0);
    PasteObjects(Session, copied);
    EXPECT_EQ(Objects(), before);
    EXPECT_EQ(SelectedObjects(Session.Document).size(), 4U);
}

TEST_F(Clip, PutsACopyBesideItsOriginalAndSelectsIt)
{
    Select({&AddText(Session, QStringLiteral("Visitor"))});
    DuplicateSelected(Session);
    DuplicateSelected(Session);
    const CardObject& copy = *Session.Document.Find(Family::lbl_TEXT, 3);
    EXPECT_EQ(copy.Left, 600);
    EXPECT_EQ(copy.Top, 600);
    EXPECT_EQ(Session.Document.SelectedObject, &copy);
    EXPECT_EQ(copy.Caption(), QStringLiteral("Visitor"));
}

TEST_F(Clip, CuttingAndPastingAreOneStepEach)
{
    Select(OneOfEach());
    NoteDesign(Session);
    const QString before = PageText(Session);
    const QByteArray copied = CutSelected(Session);
    NoteDesign(Session);
    EXPECT_EQ(Count(), 0);
    PasteObjects(Session, copied);
    NoteDesign(Session);
    EXPECT_EQ(Count(), 4);
    UndoDesign(Session);
    EXPECT_EQ(Count(), 0);
    UndoDesign(Session);
    EXPECT_EQ(PageText(Session), before);
}

TEST_F(Clip, ACopyOfANumberCountsOnByItself)
{
    Select({&AddNumber(Session, 41)});
    NoteDesign(Session);
    DuplicateSelected(Session);
    NoteDesign(Session);
    Session.Document.Find(Family::lbl_AUTO, 1)->DataField = QStringLiteral("50");
    EXPECT_EQ(Session.Document.Find(Family::lbl_AUTO, 2)->DataField, QStringLiteral("41"));
    EXPECT_EQ(Session.Document.Find(Family::lbl_AUTO, 2)->StoreKey, 0);
}

TEST_F(Clip, ATextOfAnotherProgramBecomesAStaticText)
{
    PasteText(Session, QStringLiteral("Two\nlines"));
    const CardObject& text = *Session.Document.Find(Family::lbl_TEXT, 1);
    EXPECT_EQ(text.Caption(), QStringLiteral("Two\nlines"));
    EXPECT_EQ(Session.Document.SelectedObject, &text);
    PasteText(Session, QString(10'000'000, u'x'));
    const CardObject& longText = *Session.Document.Find(Family::lbl_TEXT, 2);
    EXPECT_EQ(longText.Caption().size(), LongestPastedText);
    EXPECT_LE(longText.Left + longText.Width, std::max(Session.Document.Width, 2000.0F));
    PasteText(Session, QString());
    EXPECT_EQ(Count(), 2);
}

TEST_F(Clip, WhatIsNoCopyPastesNothing)
{
    for (const char* bytes : {"", "x", "{}", "[1,\"a\",{}]", "[{\"Control_Type\":\"Form\"}]",
                              R"([{"Control_Type":"VB.Image","C_ImagePath":"NO_INCL"}])"})
        PasteObjects(Session, bytes);
    EXPECT_EQ(Count(), 0);
    PasteObjects(Session, QByteArray(qsizetype{20} * 1024 * 1024, '['));
    EXPECT_EQ(Count(), 0);
}

TEST_F(Clip, StrangeValuesOfACopyGiveAnObjectThatCanBeReached)
{
    PasteObjects(Session,
                 R"([{"Control_Type":"VB.Label","C_Param_1":"TXT","C_Value":7,"C_Left":1e300,
        "C_Top":"x","C_Width":-5,"C_FontSize":"big","Filter":"NO_INCL","C_Alignment":99999}])");
    ASSERT_EQ(Count(), 1);
    const CardObject& text = *Session.Document.Find(Family::lbl_TEXT, 1);
    EXPECT_EQ(text.Left, 100000);
    EXPECT_EQ(text.Width, 0);
    EXPECT_EQ(text.Tag, QString());
}

TEST_F(Clip, PastesAThousandObjectsAndNoMore)
{
    QJsonArray rows;
    for (int row = 0; row < 1500; ++row)
        rows.append(QJsonObject{{QStringLiteral("Control_Type"), QStringLiteral("VB.Label")}});
    PasteObjects(Session, QJsonDocument(rows).toJson());
    EXPECT_EQ(Count(), MostPasted);
}

TEST_F(Clip, DoesNothingWithoutTheOptionOrALayout)
{
    Select({&AddText(Session, QStringLiteral("Visitor"))});
    const QByteArray copied = CopySelected(Session);
    EXPECT_FALSE(copied.isEmpty());
    Session.Options.DesignTools = false;
    EXPECT_TRUE(CopySelected(Session).isEmpty());
    EXPECT_TRUE(CutSelected(Session).isEmpty());
    PasteObjects(Session, copied);
    PasteText(Session, QStringLiteral("x"));
    DuplicateSelected(Session);
    MoveSelected(Session, 20, 20);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Session.Document.SelectedObject->Left, 200);
    Session.Options.DesignTools = true;
    Session.CurrentLayoutName.clear();
    PasteObjects(Session, copied);
    PasteText(Session, QStringLiteral("x"));
    EXPECT_EQ(Count(), 1);
}

TEST_F(Clip, SeveralSelectedObjectsAreDeletedTogether)
{
    Select(OneOfEach());
    Station.Operator.Answers = {true};
    DeleteSelectedObject(Session);
    EXPECT_EQ(Count(), 0);
    EXPECT_TRUE(Station.Operator.AppMessages.first().contains(QStringLiteral("these 4 objects")));
}

TEST_F(Clip, SeveralSelectedObjectsMoveAndAlignInOneStep)
{
    Select(OneOfEach());
    NoteDesign(Session);
    const QString before = PageText(Session);
    MoveSelected(Session, PointStep, TwipStep);
    EXPECT_EQ(Session.Document.Find(Family::lbl_DATA, 1)->Left, 220);
    EXPECT_EQ(Session.Document.Find(Family::lbl_TEXT, 1)->Top, 201);
    NoteDesign(Session);
    AlignSelected(Session, AlignLine::Right);
    NoteDesign(Session);
    SpreadSelected(Session, SpreadAxis::Down);
    StackSelected(Session, StackMove::ToBack);
    UndoDesign(Session);
    UndoDesign(Session);
    UndoDesign(Session);
    EXPECT_EQ(PageText(Session), before);
    EXPECT_EQ(SelectedObjects(Session.Document).size(), 4U);
}

} // namespace
} // namespace vantrel::test
