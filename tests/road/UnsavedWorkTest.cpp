#include "road/SeenWindows.h"
#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "station/layout/StoredRows.h"
#include "support/Events.h"
#include <QFile>
#include <csignal>
#include <gtest/gtest.h>

// What somebody designs at the built station and has not saved, when the station is killed.

namespace vantrel::test {
namespace {

/// The layout "Badge" with two fields is open; its records print.
class UnsavedWork : public ::testing::Test
{
protected:
    UnsavedWork()
    {
        Folder.SetOption("DesignTools", QStringLiteral("True"));
        Start();
    }

    void Start()
    {
        Station.emplace(Folder.Session.ProgramFolder,
                        StationStart{.Environment = Bus.Environment()});
        EXPECT_TRUE(EventsUntil([this] { return Windows.OnCard().size() >= 2; }))
            << Station->ErrorLines().join(QLatin1Char('\n')).toStdString();
    }
    /// Kills it at once, which nothing in it can notice, and starts it again.
    void KillAndStart()
    {
        Station->SendSignal(SIGKILL);
        EXPECT_EQ(Station->ExitCode(), -1);
        EXPECT_TRUE(EventsUntil([this] { return !Windows.Main().has_value(); }));
        Start();
    }
    void InsertText() const { Windows.Choose({"Document", "Insert New Static Text"}); }
    void Save() const
    {
        Windows.Choose({"File", "Save"});
        Windows.Answer(QStringLiteral("Document Saved."), QStringLiteral("Ok"));
    }
    bool ComesOnCard(const QString& name) const
    {
        return EventsUntil([&] { return Windows.OnCard().contains(name); });
    }
    QByteArray Kept() const
    {
        QFile file(Folder.Session.PathInFolder(QStringLiteral("Unsaved page 1.json")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool IsKept(const QString& text) const
    {
        return EventsUntil([&] { return Kept().contains(text.toUtf8()); });
    }
    int StoredObjects()
    {
        return static_cast<int>(
            StoredRows(Folder.Session, QStringLiteral("SELECT * FROM Controls")).size());
    }

    const QString Question = QStringLiteral("Take Up Changes?");
    const QString First = QStringLiteral("Static Text 1");
    const QString Second = QStringLiteral("Static Text 2");

    AccessBus Bus;
    SeenWindows Windows{Bus};
    StationFolder Folder;
    const int Port = Folder.WithCapture();
    std::optional<StationProcess> Station;
};

TEST_F(UnsavedWork, IsTakenUpAgainBehindAKillAndCanBeSaved)
{
    InsertText();
    ASSERT_TRUE(ComesOnCard(First));
    ASSERT_TRUE(IsKept(First));
    EXPECT_EQ(StoredObjects(), 2);
    KillAndStart();
    Windows.Answer(Question, QStringLiteral("Yes"));
    EXPECT_TRUE(ComesOnCard(First));
    EXPECT_EQ(StoredObjects(), 2);
    // What was taken up and killed again is there again.
    InsertText();
    ASSERT_TRUE(ComesOnCard(Second));
    ASSERT_TRUE(IsKept(Second));
    KillAndStart();
    Windows.Answer(Question, QStringLiteral("Yes"));
    EXPECT_TRUE(ComesOnCard(Second));
    EXPECT_TRUE(Windows.OnCard().contains(First));
    Save();
    EXPECT_EQ(StoredObjects(), 4);
    EXPECT_TRUE(EventsUntil([this] { return Kept().isEmpty(); }));
    KillAndStart();
    EXPECT_TRUE(ComesOnCard(Second));
    EXPECT_FALSE(Windows.Dialog(Question).has_value());
}

TEST_F(UnsavedWork, IsLeftByRecordsThatPrintBeforeAndBehindAKill)
{
    InsertText();
    ASSERT_TRUE(IsKept(First));
    ASSERT_TRUE(Station->WaitUntilItListens(Port));
    SendRecord(Port, "<Ada+One>");
    EXPECT_EQ(Folder.TextOfCard(1), QStringLiteral("Ada One"));
    EXPECT_TRUE(Windows.OnCard().contains(First));
    KillAndStart();
    // The question is open while the record comes.
    ASSERT_TRUE(EventsUntil([this] { return Windows.Dialog(Question).has_value(); }));
    ASSERT_TRUE(Station->WaitUntilItListens(Port));
    SendRecord(Port, "<Bob+Two>");
    EXPECT_EQ(Folder.TextOfCard(2), QStringLiteral("Bob Two"));
    Windows.Answer(Question, QStringLiteral("Yes"));
    EXPECT_TRUE(ComesOnCard(First));
    Save();
    SendRecord(Port, "<Eve+Three>");
    EXPECT_EQ(Folder.TextOfCard(3), QStringLiteral("Eve Three Static Text 1"));
}

TEST_F(UnsavedWork, IsGivenUpByNoAndAskedAboutAgainBehindCancel)
{
    InsertText();
    ASSERT_TRUE(IsKept(First));
    KillAndStart();
    Windows.Answer(Question, QStringLiteral("Cancel"));
    EXPECT_FALSE(Kept().isEmpty());
    EXPECT_FALSE(Windows.OnCard().contains(First));
    KillAndStart();
    Windows.Answer(Question, QStringLiteral("No"));
    EXPECT_TRUE(Kept().isEmpty());
    EXPECT_FALSE(Windows.OnCard().contains(First));
    EXPECT_EQ(StoredObjects(), 2);
}

TEST_F(UnsavedWork, IsAskedAboutBeforeTheStationIsEndedByItsMenu)
{
    InsertText();
    ASSERT_TRUE(ComesOnCard(First));
    const QString end = QStringLiteral(" Disable Vantrel?");
    const QString save = QStringLiteral("Save Changes?");
    Windows.Choose({"File", "Disable Vantrel"});
    Windows.Answer(end, QStringLiteral("Yes"));
    Windows.Answer(save, QStringLiteral("Cancel"));
    EXPECT_TRUE(Station->IsRunning());
    EXPECT_TRUE(Windows.OnCard().contains(First));
    Windows.Choose({"File", "Disable Vantrel"});
    Windows.Answer(end, QStringLiteral("Yes"));
    Windows.Answer(save, QStringLiteral("Yes"));
    EXPECT_EQ(Station->ExitCode(), 0);
    EXPECT_EQ(StoredObjects(), 3);
    EXPECT_TRUE(Kept().isEmpty());
}

} // namespace
} // namespace vantrel::test
