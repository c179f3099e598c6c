#include "BehindSurface.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "station/layout/SetNumber.h"
#include "support/FailureOf.h"
#include "support/WarningGuard.h"

// Automatic numbers of cards that print behind the surface: none is given twice, whatever the
// operator saves or takes back meanwhile.

namespace vantrel::test {
namespace {

/// The layout "Number" has a text, a field and a number, which begins behind 1000.
class NumbersBehindSurface : public BehindSurface
{
protected:
    NumbersBehindSurface()
    {
        SavePage(Session);
        BeginLayout(Session, Name);
        AddText(Session, QStringLiteral("Card"));
        AddField(Session, 1);
        AddNumber(Session, 1000);
        SavePage(Session);
        OpenLayout(Session, Name);
        NoteDesign(Session);
        Station.Printers.Operations.clear();
    }

    CardObject& Number() { return *Session.Document.Find(Family::lbl_AUTO, 1); }
    void Move()
    {
        NoteDesign(Session);
        Text(1).Left += 20;
        NoteDesign(Session);
    }
    QString TakeNumber()
    {
        Arrive();
        return TakePrinted().value(2);
    }
    /// From now on the store refuses to change any object, until `Mend`.
    void Refuse()
    {
        Session.LayoutDb.Database().Execute(
            QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON Controls BEGIN SELECT "
                           "RAISE(ABORT, 'refused'); END"));
    }
    void Mend() { Session.LayoutDb.Database().Execute(QStringLiteral("DROP TRIGGER refuse")); }

    const QString Name = QStringLiteral("Number");
};

} // namespace

TEST_F(NumbersBehindSurface, RiseOneByOneAcrossSavesOfTheSurface)
{
    for (const bool unique : {false, true}) {
        Session.Options.UniqueNumbers = unique;
        const int first = unique ? 1101 : 1001;
        for (int card = 0; card < 100; ++card) {
            if (card % 7 == 0)
                Move();
            if (card % 14 == 0)
                SavePage(Session);
            ASSERT_EQ(TakeNumber(), QString::number(first + card));
            ASSERT_EQ(Number().DataField, QString::number(first + card));
            ASSERT_EQ(Number().Caption(), QString::number(first + card));
        }
        SavePage(Session);
        EXPECT_EQ(StoredNumbers(Session, Name), QStringList(QString::number(first + 99)));
    }
    EXPECT_FALSE(IsPageUnsaved(Session));
}

TEST_F(NumbersBehindSurface, AreNoChangeOfThePage)
{
    TakeNumber();
    EXPECT_FALSE(IsPageUnsaved(Session));
    EXPECT_FALSE(CanUndoDesign(Session));
}

TEST_F(NumbersBehindSurface, DoNotGoBackWithStepsThatAreTakenBack)
{
    Move();
    EXPECT_EQ(TakeNumber(), QStringLiteral("1001"));
    Session.Document.Remove(Number());
    NoteDesign(Session);
    EXPECT_EQ(TakeNumber(), QStringLiteral("1002"));
    UndoDesign(Session);
    UndoDesign(Session);
    SavePage(Session);
    EXPECT_EQ(TakeNumber(), QStringLiteral("1003"));
}

TEST_F(NumbersBehindSurface, KeepTheirObjectsWhereAnotherNumberIsPutBeforeThem)
{
    const CardObject& second = AddNumber(Session, 50);
    EXPECT_EQ(TakeNumber(), QStringLiteral("1001"));
    SavePage(Session);
    Session.Document.Remove(*Session.Document.Find(Family::lbl_DATA, 1));
    EXPECT_EQ(TakeNumber(), QStringLiteral("1002"));
    SavePage(Session);
    Arrive();
    EXPECT_EQ(TakePrinted(),
              (QStringList{QStringLiteral("Card"), QStringLiteral("1003"), QStringLiteral("52")}));
    EXPECT_EQ(second.DataField, QStringLiteral("52"));
}

TEST_F(NumbersBehindSurface, OfAnotherPageLeaveTheSurfaceAlone)
{
    BeginPage(Session, 2);
    AddNumber(Session, 7);
    SavePage(Session);
    OpenLayout(Session, Name);
    Arrive();
    EXPECT_EQ(Number().DataField, QStringLiteral("1001"));
    EXPECT_EQ(StoredNumbers(Session, Name),
              (QStringList{QStringLiteral("1001"), QStringLiteral("8")}));
    NextPage(Session);
    EXPECT_EQ(Number().DataField, QStringLiteral("8"));
}

TEST_F(NumbersBehindSurface, RiseWhereTheStoreRefusesThem)
{
    Refuse();
    EXPECT_EQ(TakeNumber(), QStringLiteral("1001"));
    EXPECT_EQ(TakeNumber(), QStringLiteral("1002"));
    ASSERT_EQ(Station.Operator.CriticalBoxes.size(), 2);
    OpenLayout(Session, QStringLiteral("A"));
    OpenLayout(Session, Name);
    EXPECT_EQ(Number().DataField, QStringLiteral("1002"));
    EXPECT_EQ(TakeNumber(), QStringLiteral("1003"));
    Mend();
    EXPECT_EQ(StoredNumbers(Session, Name), QStringList(QStringLiteral("1000")));
    EXPECT_EQ(TakeNumber(), QStringLiteral("1004"));
    EXPECT_EQ(StoredNumbers(Session, Name), QStringList(QStringLiteral("1004")));
}

TEST_F(NumbersBehindSurface, AreStoredWithASaveWhereTheStoreRefusedThemBefore)
{
    Refuse();
    EXPECT_EQ(TakeNumber(), QStringLiteral("1001"));
    Mend();
    Move();
    SavePage(Session);
    EXPECT_EQ(StoredNumbers(Session, Name), QStringList(QStringLiteral("1001")));
    EXPECT_EQ(TakeNumber(), QStringLiteral("1002"));
}

TEST_F(NumbersBehindSurface, ANumberThatWasGivenAndNotStoredIsNotSetAgainWithoutAQuestion)
{
    const CardObject& second = AddNumber(Session, 50);
    SavePage(Session);
    Refuse();
    EXPECT_EQ(TakeNumber(), QStringLiteral("1001"));
    EXPECT_EQ(TakeNumber(), QStringLiteral("1002"));
    // What the store refuses is not set, and nothing is forgotten.
    EXPECT_NE(FailureOf([&] { SetNextNumber(Session, Number(), 3000, false); }), 0);
    EXPECT_EQ(TakeNumber(), QStringLiteral("1003"));
    Mend();
    EXPECT_EQ(LastNumber(Session, Number()), 1003);
    EXPECT_FALSE(SetNextNumber(Session, Number(), 1003, false));
    EXPECT_TRUE(SetNextNumber(Session, Number(), 1004, false));
    Move();
    SavePage(Session);
    EXPECT_EQ(TakeNumber(), QStringLiteral("1004"));
    // The number beside it goes on behind what it has given.
    EXPECT_EQ(second.DataField, QStringLiteral("54"));
    EXPECT_EQ(StoredNumbers(Session, Name),
              (QStringList{QStringLiteral("1004"), QStringLiteral("54")}));
}

TEST_F(NumbersBehindSurface, ALowerNumberThatIsSetIsNotRaisedByWhatWasGivenBefore)
{
    Refuse();
    EXPECT_EQ(TakeNumber(), QStringLiteral("1001"));
    Mend();
    EXPECT_TRUE(SetNextNumber(Session, Number(), 500, true));
    EXPECT_EQ(TakeNumber(), QStringLiteral("500"));
    Move();
    SavePage(Session);
    EXPECT_EQ(TakeNumber(), QStringLiteral("501"));
    EXPECT_EQ(StoredNumbers(Session, Name), QStringList(QStringLiteral("501")));
}

TEST_F(NumbersBehindSurface, ASaveThatFailsStaysOnTheSurfaceAndRecordsPrintWhatIsStored)
{
    Move();
    AddText(Session, QStringLiteral("Draft"));
    NoteDesign(Session);
    Refuse();
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    Mend();
    EXPECT_EQ(TakeNumber(), QStringLiteral("1001"));
    EXPECT_TRUE(IsPageUnsaved(Session));
    EXPECT_EQ(Text(2).Caption(), QStringLiteral("Draft"));
    SavePage(Session);
    Arrive();
    EXPECT_EQ(TakePrinted(), (QStringList{QStringLiteral("Card"), QStringLiteral("one"),
                                          QStringLiteral("1002"), QStringLiteral("Draft")}));
    ASSERT_TRUE(LoadLayout(Session, Name));
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_TEXT), 2);
    EXPECT_EQ(Text(1).Left, 220);
}

TEST_F(NumbersBehindSurface, WithoutTheOptionASaveWritesTheNumberItShows)
{
    Session.Options.DesignTools = false;
    EXPECT_EQ(TakeNumber(), QStringLiteral("1001"));
    Number().DataField = QStringLiteral("500");
    SavePage(Session);
    EXPECT_EQ(StoredNumbers(Session, Name), QStringList(QStringLiteral("500")));
}

} // namespace vantrel::test
