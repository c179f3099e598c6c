#include "StoredRows.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "support/Layouts.h"
#include "support/StoreFaults.h"
#include <gtest/gtest.h>
#include <stdexcept>

// A save that runs out of room must lose nothing but itself, wherever it stops: the store rolls
// back what the save has written, and none of the page's rows may be deleted after that.

namespace vantrel::test {

namespace {

const QString Staff = QStringLiteral("Staff");

class SaveWithoutRoom : public ::testing::Test
{
protected:
    SaveWithoutRoom()
    {
        Test.WithDatabase();
        Path = Test.LayoutStore->Location();
        BeginLayout(Session, Staff);
    }

    /// Saves a page whose rows fill about a database page each.
    void SavePageOf(int objects)
    {
        for (int i = 0; i < objects; ++i)
            AddText(Session, QString());
        SetCaptions(u'a');
        SavePage(Session);
    }

    /// Gives every object another text, so that every row must be written again.
    void SetCaptions(QChar letter)
    {
        for (const auto& object : Session.Document.Objects())
            object->SetCaption(QString(3000, letter));
    }

    CardObject& FirstText()
    {
        for (const auto& object : Session.Document.Objects()) {
            if (object->IsContent())
                return *object;
        }
        throw std::logic_error("the page has no text");
    }

    /// Expects the page's rows to be there, all with the text of that letter.
    void ExpectStored(int objects, QChar letter) const
    {
        const QList<StoredRow> rows = StoredPage(Session, Staff, 1);
        EXPECT_EQ(rows.size(), objects);
        for (const StoredRow& row : rows)
            ASSERT_TRUE(row[QStringLiteral("C_Value")].toString().startsWith(letter));
        EXPECT_EQ(StoredRows(Session, QStringLiteral("PRAGMA integrity_check"))
                      .value(0)
                      .value(QStringLiteral("integrity_check")),
                  QStringLiteral("ok"));
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
    QString Path;
};

TEST_F(SaveWithoutRoom, LeavesEveryRowOfAPageLargerThanTheStoresCache)
{
    constexpr int rows = 901;
    SavePageOf(rows);
    SetCaptions(u'b');
    // So that already the first of the rows finds no room.
    FirstText().SetCaption(QString(60000, u'b'));
    LeaveRoom(2);
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    GiveRoomBack();
    ExpectStored(rows, u'a');
    EXPECT_FALSE(IsLocked(Path));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    ExpectStored(rows, u'b');
}

TEST_F(SaveWithoutRoom, LeavesThePageUnchangedWhicheverWriteFails)
{
    constexpr int rows = 40;
    // Half of what a page takes in the log, so that writes are cut in their middle, too.
    constexpr qint64 step = 2060;
    SavePageOf(rows);
    // Rows are written out long before the commit.
    LimitCache(4);
    QChar stored = u'a';
    int failures = 0;
    for (bool saved = false; !saved; ++failures) {
        const QChar next = stored == u'a' ? u'b' : u'a';
        SetCaptions(next);
        EmptyLog(Path);
        {
            const FilesMayNotGrow limit(failures * step);
            saved = SaveLayout(Session, SaveMessages::Silent);
        }
        ExpectStored(rows, saved ? next : stored);
        EXPECT_FALSE(IsLocked(Path));
        // The session goes on, and its next save is a whole one.
        ASSERT_TRUE(SaveLayout(Session, SaveMessages::Silent));
        ExpectStored(rows, next);
        stored = next;
        if (HasFailure())
            FAIL() << "with room for " << failures * step << " bytes";
    }
    EXPECT_GT(failures, rows);
    ASSERT_TRUE(LoadLayout(Session, Staff));
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_TEXT), rows);
}

} // namespace

} // namespace vantrel::test
