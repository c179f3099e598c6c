#include "StoredRows.h"
#include "card/AutoNumber.h"
#include "station/layout/DeleteLayout.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/Navigation.h"
#include "station/layout/NewLayout.h"
#include "station/layout/Pages.h"
#include "station/layout/SaveLayout.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include "support/StoreFaults.h"
#include <gtest/gtest.h>

// A save that fails in its middle: its session goes on with the rows it has written, as if its
// transaction were still open. No other session may have to wait for it, and no partial page may
// stay in the file.

namespace vantrel::test {

namespace {

const QString Staff = QStringLiteral("Staff");
const QString Guests = QStringLiteral("Guests");

/// Two sessions on one store. The first has a page open with a text, a number and another text.
class FailedSave : public ::testing::Test
{
protected:
    FailedSave()
    {
        Test.WithDatabase();
        Path = Test.LayoutStore->Location();
        Second.LayoutDb.Open(Path);
        BeginLayout(Session, Staff);
        AddText(Session, QStringLiteral("first"));
        AddNumber(Session, 1000);
        AddText(Session, QStringLiteral("last"));
        SavePage(Session);
        BeginLayout(Second, Guests);
        AddNumber(Second, 500);
        SavePage(Second);
        for (const auto& action : {QStringLiteral("UPDATE"), QStringLiteral("INSERT")})
            RefuseValue(Path, action, QStringLiteral("refused"));
    }

    /// Raises the number of the page, as a card does, and fails to save the object behind it.
    void FailBehindTheNumber()
    {
        Raise(Session);
        LastObject().SetCaption(QStringLiteral("refused"));
        EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
        ASSERT_EQ(Test.Operator.CriticalBoxes.size(), ++m_failures);
    }

    CardObject& LastObject() { return *Session.Document.Objects().back(); }

    static void Raise(vantrel::Session& session)
    {
        Increment_If_AutoNumber(*session.Document.Find(Family::lbl_AUTO, 1));
    }

    /// Prints a card and saves its page. @return the number on the card
    static QString MakeCard(vantrel::Session& session, const QString& layout)
    {
        EXPECT_TRUE(LoadLayout(session, layout));
        Raise(session);
        EXPECT_TRUE(SaveLayout(session, SaveMessages::Silent));
        return session.Document.Find(Family::lbl_AUTO, 1)->DataField;
    }

    /// The texts of the page in the file.
    QStringList Stored(int page = 1) const
    {
        QStringList values;
        for (const StoredRow& row : StoredPage(Session, Staff, page))
            values.append(row[QStringLiteral("C_Value")].toString());
        return values;
    }

    /// The texts that the first session itself gets when it loads the page.
    QStringList Loaded(int page = 1)
    {
        Session.CurrentParams.PageIndex = static_cast<std::int16_t>(page);
        EXPECT_TRUE(LoadLayout(Session, Staff));
        QStringList values;
        for (const auto& object : Session.Document.Objects()) {
            if (object->IsContent())
                values.append(object->Caption());
        }
        return values;
    }

    static QStringList Values(const char* first, const char* number, const char* last)
    {
        return {QString::fromLatin1(first), QString::fromLatin1(number), QString::fromLatin1(last)};
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
    QString Path;
    TestOperator SecondOperator;
    RecordingPrinters SecondPrinters{{QStringLiteral("Card Printer")}};
    vantrel::Session Second{Session.ProgramFolder, SecondOperator, SecondPrinters};

private:
    qsizetype m_failures = 0;
};

TEST_F(FailedSave, HoldsNoLockNotEvenWhileItsBoxIsOpen)
{
    bool lockedBehindTheBox = true;
    Test.Operator.WhileAsked = [&] { lockedBehindTheBox = IsLocked(Path); };
    FailBehindTheNumber();
    EXPECT_FALSE(lockedBehindTheBox);
    EXPECT_FALSE(IsLocked(Path));
    // For its own session the transaction is open.
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 1);
}

TEST_F(FailedSave, LetsTheNumbersOfOtherSessionsRise)
{
    FailBehindTheNumber();
    for (const int number : {501, 502, 503}) {
        EXPECT_EQ(MakeCard(Second, Guests), QString::number(number));
        EXPECT_EQ(StoredNumbers(Second, Guests), QStringList{QString::number(number)});
    }
    EXPECT_TRUE(SecondOperator.CriticalBoxes.isEmpty());
}

TEST_F(FailedSave, IsSeenByItsOwnSessionOnly)
{
    FailBehindTheNumber();
    EXPECT_EQ(Loaded(), (QStringList{QStringLiteral("first"), QStringLiteral("1001")}));
    EXPECT_EQ(Stored(), Values("first", "1000", "last"));
    ASSERT_TRUE(LoadLayout(Second, Staff));
    EXPECT_EQ(Second.Document.HighestIndex(Family::lbl_TEXT), 2);
}

TEST_F(FailedSave, AtTheFirstObjectHidesThePageFromItsOwnSessionOnly)
{
    Session.Document.Find(Family::lbl_TEXT, 1)->SetCaption(QStringLiteral("refused"));
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_FALSE(LoadLayout(Session, Staff));
    EXPECT_EQ(Stored(), Values("first", "1000", "last"));
    EXPECT_TRUE(LoadLayout(Second, Staff));
    // When another session has saved the page, it is there again.
    EXPECT_EQ(MakeCard(Second, Staff), QStringLiteral("1001"));
    EXPECT_EQ(Loaded(), Values("first", "1001", "last"));
}

TEST_F(FailedSave, IsCompletedByTheNextSaveThatWorks)
{
    FailBehindTheNumber();
    LastObject().SetCaption(QStringLiteral("better"));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Stored(), Values("first", "1001", "better"));
    EXPECT_EQ(Loaded(), Values("first", "1001", "better"));
    EXPECT_EQ(MakeCard(Session, Staff), QStringLiteral("1002"));
    EXPECT_EQ(Stored(), Values("first", "1002", "better"));
}

TEST_F(FailedSave, LetsTheNextOneDeleteWhatIsNotOnTheForm)
{
    FailBehindTheNumber();
    Session.Document.Remove(LastObject());
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Stored(), (QStringList{QStringLiteral("first"), QStringLiteral("1001")}));
}

TEST_F(FailedSave, LeavesThePageWholeInTheFileWhateverTheSessionSavesNext)
{
    FailBehindTheNumber();
    // The session's next cards show what it sees; their numbers last, and so does the last text.
    for (const int number : {1002, 1003}) {
        EXPECT_EQ(MakeCard(Session, Staff), QString::number(number));
        EXPECT_EQ(Stored(), Values("first", QByteArray::number(number), "last"));
        EXPECT_EQ(Loaded(), (QStringList{QStringLiteral("first"), QString::number(number)}));
    }
    AddText(Session, QStringLiteral("added"));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Stored(), Values("first", "1003", "last") << QStringLiteral("added"));
    // A start finds the whole page.
    Session.LayoutDb.Close();
    Session.LayoutDb.Open(Path);
    EXPECT_EQ(Loaded(), Values("first", "1003", "last") << QStringLiteral("added"));
}

TEST_F(FailedSave, MayFailAgainAndAgain)
{
    FailBehindTheNumber();
    FailBehindTheNumber();
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 2);
    EXPECT_FALSE(IsLocked(Path));
    EXPECT_EQ(Loaded(), (QStringList{QStringLiteral("first"), QStringLiteral("1002")}));
    // Now in the rows that it sees.
    Session.Document.Find(Family::lbl_TEXT, 1)->SetCaption(QStringLiteral("changed"));
    Session.Document.Find(Family::lbl_AUTO, 1)->DataField = QStringLiteral("refused");
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Loaded(), QStringList{QStringLiteral("changed")});
    EXPECT_EQ(Stored(), Values("first", "1000", "last"));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Stored(), Values("changed", "1000", "last"));
}

TEST_F(FailedSave, KeepsNewObjectsInTheirOrder)
{
    AddText(Session, QStringLiteral("new"));
    AddText(Session, QString());
    FailBehindTheNumber();
    const QStringList seen = Values("first", "1001", "last") << QStringLiteral("new");
    EXPECT_EQ(Loaded(), seen);
    // Others get the keys that were given to the objects.
    for (int page = 2; page < 5; ++page) {
        BeginPage(Second, static_cast<std::int16_t>(page));
        AddText(Second, QStringLiteral("guest"));
        SavePage(Second);
    }
    EXPECT_EQ(Loaded(), seen);
    EXPECT_EQ(Stored(), Values("first", "1000", "last"));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Stored(), seen);
    EXPECT_EQ(StoredPage(Session, Guests, 3).size(), 1);
}

TEST_F(FailedSave, IsReplacedByWhatAnotherSessionHasSavedSince)
{
    FailBehindTheNumber();
    EXPECT_EQ(MakeCard(Second, Staff), QStringLiteral("1001"));
    EXPECT_EQ(MakeCard(Second, Staff), QStringLiteral("1002"));
    EXPECT_EQ(Loaded(), Values("first", "1002", "last"));
    EXPECT_EQ(MakeCard(Session, Staff), QStringLiteral("1003"));
    EXPECT_EQ(Stored(), Values("first", "1003", "last"));
}

TEST_F(FailedSave, LeavesThePageWholeWhereAnotherSessionHasSavedItSince)
{
    FailBehindTheNumber();
    ASSERT_EQ(Loaded().size(), 2);
    EXPECT_EQ(MakeCard(Second, Staff), QStringLiteral("1001"));
    Raise(Session);
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Stored(), Values("first", "1002", "last"));
}

TEST_F(FailedSave, OfOnePageTouchesNoOtherPage)
{
    BeginPage(Session, 2);
    AddText(Session, QStringLiteral("back"));
    SavePage(Session);
    ASSERT_EQ(Loaded(1).size(), 3);
    FailBehindTheNumber();
    EXPECT_EQ(Loaded(2), QStringList{QStringLiteral("back")});
    LastObject().SetCaption(QStringLiteral("changed"));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Stored(2), QStringList{QStringLiteral("changed")});
    EXPECT_EQ(Session.CurrentParams.PageCount, 2);
    EXPECT_EQ(Stored(1), Values("first", "1000", "last"));
    EXPECT_EQ(Loaded(1), (QStringList{QStringLiteral("first"), QStringLiteral("1001")}));
}

TEST_F(FailedSave, OfEachOfTwoPagesKeepsTheNewObjectsOfBoth)
{
    BeginPage(Session, 2);
    AddNumber(Session, 20);
    SavePage(Session);
    ASSERT_EQ(Loaded(1).size(), 3);
    AddText(Session, QStringLiteral("new"));
    AddText(Session, QString());
    FailBehindTheNumber();
    ASSERT_EQ(Loaded(2).size(), 1);
    AddText(Session, QStringLiteral("new behind"));
    AddText(Session, QStringLiteral("last behind"));
    AddText(Session, QString());
    FailBehindTheNumber();
    EXPECT_EQ(Loaded(1), Values("first", "1001", "last") << QStringLiteral("new"));
    EXPECT_EQ(Loaded(2), Values("21", "new behind", "last behind"));
}

TEST_F(FailedSave, ThatHidItsPageKeepsItBesideANewOne)
{
    BeginPage(Session, 2);
    AddText(Session, QStringLiteral("back"));
    SavePage(Session);
    LastObject().SetCaption(QStringLiteral("refused"));
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    ASSERT_EQ(Loaded(1).size(), 3);
    ASSERT_EQ(Session.CurrentParams.PageCount, 1);
    NewPage(Session);
    AddText(Session, QStringLiteral("new"));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Stored(2), (QStringList{QStringLiteral("back"), QStringLiteral("new")}));
    EXPECT_EQ(Loaded(2), QStringList{QStringLiteral("new")});
}

TEST_F(FailedSave, ThatHidItsLayoutKeepsItBesideANewOneOfItsName)
{
    Session.Document.Find(Family::lbl_TEXT, 1)->SetCaption(QStringLiteral("refused"));
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    ASSERT_FALSE(LoadLayout(Session, Staff));
    NewLayout(Session, Staff);
    AddText(Session, QStringLiteral("new"));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Stored(), Values("first", "1000", "last") << QStringLiteral("new"));
    EXPECT_EQ(Loaded(), QStringList{QStringLiteral("new")});
}

TEST_F(FailedSave, IsDroppedWhenItsLayoutIsDeleted)
{
    FailBehindTheNumber();
    ASSERT_EQ(Loaded().size(), 2);
    DeleteLayoutRows(Session, Staff);
    EXPECT_TRUE(Stored().isEmpty());
}

} // namespace

} // namespace vantrel::test
