#include "card/AutoNumber.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

const QString Staff = QStringLiteral("Staff");

/// One number on one card: load, fields, print, save.
TEST(CardCycle, ANumberPrintsAndIsSavedOneHigherThanStoredAndWithoutItsCheckDigit)
{
    TestSession test;
    test.WithDatabase();
    vantrel::Session& session = test.Session;
    BeginLayout(session, Staff);
    AddNumber(session, 5).DataMember = QStringLiteral("MOD10");
    SavePage(session);
    for (const int printed : {6, 7, 8}) {
        ASSERT_TRUE(LoadLayout(session, Staff));
        CardObject& number = *session.Document.Find(Family::lbl_AUTO, 1);
        const QString stored = QString::number(printed - 1);
        EXPECT_EQ(number.Caption(), stored);
        ReapplyFieldValues(session);
        EXPECT_EQ(number.Caption().size(), stored.size() + 1);
        EXPECT_TRUE(number.Caption().startsWith(stored));
        Increment_If_AutoNumber(number);
        EXPECT_EQ(number.Caption(), QString::number(printed));
        ASSERT_TRUE(SaveLayout(session, SaveMessages::Silent));
        EXPECT_EQ(StoredNumbers(session, Staff), QStringList{QString::number(printed)});
    }
}

TEST(CardCycle, AFilteredNumberIsStoredUnfiltered)
{
    TestSession test;
    test.WithDatabase();
    vantrel::Session& session = test.Session;
    BeginLayout(session, Staff);
    CardObject& number = AddNumber(session, 9);
    number.Tag = QStringLiteral("0");
    Increment_If_AutoNumber(number);
    EXPECT_EQ(number.Caption(), QStringLiteral("1"));
    SavePage(session);
    EXPECT_EQ(StoredNumbers(session, Staff), QStringList{QStringLiteral("10")});
    LoadLayout(session, Staff);
    // The filter itself is not stored.
    EXPECT_EQ(session.Document.Find(Family::lbl_AUTO, 1)->Caption(), QStringLiteral("10"));
}

} // namespace

} // namespace vantrel::test
