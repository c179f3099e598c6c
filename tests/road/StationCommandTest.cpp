#include "base/Profile.h"
#include "road/StationProcess.h"
#include "station/layout/StoredRows.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// The built station opens a layout and somebody chooses a menu entry.
class StationCommand : public ::testing::Test
{
protected:
    StationCommand()
    {
        Folder.WithDatabase();
        BeginLayout(Folder.Session, QStringLiteral("Badge"));
        Folder.Session.CurrentParams.AutoSpool = false;
        AddField(Folder.Session, 1);
        AddField(Folder.Session, 2);
        SavePage(Folder.Session);
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Folder.Session.ProgramFolder),
                                      SessionSection(Folder.Session), QStringLiteral("LastLayout"),
                                      QStringLiteral("Badge")));
        Plugins = qEnvironmentVariable("QT_PLUGIN_PATH");
    }
    ~StationCommand() override
    {
        qputenv("QT_PLUGIN_PATH", Plugins.toLocal8Bit());
        qunsetenv("QT_QPA_GENERIC_PLUGINS");
    }

    /// The next station chooses that entry.
    static void Choose(const QByteArray& entry)
    {
        qputenv("QT_PLUGIN_PATH", VANTREL_PRESS_PLUGINS);
        qputenv("QT_QPA_GENERIC_PLUGINS", QByteArray("press:" + entry));
    }
    QVariant StoredAutoSpool()
    {
        const auto rows = StoredRows(Folder.Session, QStringLiteral("SELECT * FROM LayoutParams"));
        EXPECT_EQ(rows.size(), 1);
        return rows.value(0).value(QStringLiteral("AutoSpool"));
    }
    void ExpectSoundStore()
    {
        const auto check = StoredRows(Folder.Session, QStringLiteral("PRAGMA integrity_check"));
        ASSERT_EQ(check.size(), 1);
        EXPECT_EQ(check[0].first(), QStringLiteral("ok"));
        EXPECT_EQ(StoredRows(Folder.Session, QStringLiteral("SELECT * FROM Controls")).size(), 2);
    }

    TestSession Folder{{QStringLiteral("Vantrel PDF")}};
    QString Plugins;
};

TEST_F(StationCommand, AFailingCommandEndsItWithOneLineAndASoundStore)
{
    Execute(Folder.Session,
            QStringLiteral("CREATE TRIGGER Refuse BEFORE UPDATE ON LayoutParams "
                           "BEGIN SELECT RAISE(ABORT, 'no change is let in'); END"));
    Choose("chkAutoSpool");
    StationProcess station(Folder.Session.ProgramFolder);
    EXPECT_EQ(station.ExitCode(), 1);
    const QStringList lines = station.ErrorLines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines[0].startsWith(QStringLiteral("vantrel: run-time error ")))
        << lines[0].toStdString();
    EXPECT_TRUE(lines[0].contains(QStringLiteral("no change is let in"))) << lines[0].toStdString();
    EXPECT_FALSE(StoredAutoSpool().toBool());
    ExpectSoundStore();
}

TEST_F(StationCommand, ASuccessfulCommandLetsItRunOn)
{
    Choose("chkAutoSpool");
    StationProcess station(Folder.Session.ProgramFolder);
    EXPECT_TRUE(EventsUntil([&] { return StoredAutoSpool().toBool(); }));
    EXPECT_TRUE(station.IsRunning());
    ExpectSoundStore();
}

} // namespace
} // namespace vantrel::test
