#include "station/session/Settings.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include "support/TestSession.h"
#include <QFile>
#include <gtest/gtest.h>
#include <thread>

using namespace vantrel;
using vantrel::test::TestSession;

namespace {

class SettingsFiles : public ::testing::Test
{
protected:
    void Put(const QString& path, const QString& key, const QString& value)
    {
        ASSERT_TRUE(WriteProfileValue(path, SessionSection(Station.Session), key, value));
    }
    void PutSetting(const char* key, const QString& value)
    {
        Put(SettingsPath(Station.Session.ProgramFolder), QLatin1StringView(key), value);
    }
    QString Saved(const QString& path, const char* key)
    {
        return ReadProfileValue(path, SessionSection(Station.Session), QLatin1StringView(key),
                                QStringLiteral("absent"));
    }
    QString Saved(const char* key)
    {
        return Saved(SettingsPath(Station.Session.ProgramFolder), key);
    }

    TestSession Station;
};

} // namespace

TEST_F(SettingsFiles, AFirstRunHasTheDefaults)
{
    LoadSettings(Station.Session);
    const StationSettings& settings = Station.Session.Settings;
    EXPECT_FALSE(settings.DynamicLayouts);
    EXPECT_FALSE(settings.DynamicFields);
    EXPECT_EQ(settings.LastLayout, QString());
    EXPECT_EQ(settings.MWidth, 10425);
    EXPECT_EQ(settings.MHeight, 8895);
    EXPECT_EQ(settings.MTop, 200);
    EXPECT_EQ(settings.MLeft, 200);
    EXPECT_EQ(settings.Framing.DataStart, QStringLiteral("<"));
    EXPECT_EQ(settings.Framing.DataSeperator, QStringLiteral("+"));
    EXPECT_EQ(settings.Framing.DataEnd, QStringLiteral(">"));
    EXPECT_EQ(settings.Port, 10001);
    EXPECT_FALSE(settings.CaptureEnabled);
    EXPECT_TRUE(settings.MainVisible);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(settings.Background));
    EXPECT_TRUE(settings.UseIP);
    EXPECT_FALSE(settings.UseSerial);
    EXPECT_FALSE(settings.UseParallel);
    EXPECT_EQ(settings.ActiveMacro, QString());
    EXPECT_FALSE(QFile::exists(SettingsPath(Station.Session.ProgramFolder)));
}

TEST_F(SettingsFiles, AnAbsentKeyWithoutDefaultLeavesItsVariable)
{
    LoadSettings(Station.Session);
    EXPECT_EQ(Station.Session.Settings.SPort, 0);
    EXPECT_FALSE(Station.Session.Settings.Filters.Cr);

    StationSettings& settings = Station.Session.Settings;
    settings.SPort = 3;
    settings.SSettings = QStringLiteral("9600,n,8,1");
    settings.SFlowCtrl = 2;
    settings.Filters.Cr = true;
    LoadSettings(Station.Session);
    EXPECT_EQ(settings.SPort, 3);
    EXPECT_EQ(settings.SSettings, QStringLiteral("9600,n,8,1"));
    EXPECT_EQ(settings.SFlowCtrl, 2);
    EXPECT_TRUE(settings.Filters.Cr);
}

TEST_F(SettingsFiles, ALoadDoesNotInheritWhatIsCleared)
{
    StationSettings& settings = Station.Session.Settings;
    settings.Background = 255.0;
    settings.BufferData = true;
    LoadSettings(Station.Session);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(settings.Background));
    EXPECT_FALSE(settings.BufferData);

    settings.Background = 255.0;
    settings.CaptureEnabled = settings.DynamicFields = settings.DynamicLayouts =
        settings.BufferData = true;
    settings.Framing = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    settings.LastLayout = QStringLiteral("Badge");
    settings.Port = 9100;
    ClearSettings(Station.Session.Settings);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(settings.Background));
    EXPECT_FALSE(settings.CaptureEnabled || settings.DynamicFields || settings.DynamicLayouts ||
                 settings.BufferData);
    EXPECT_EQ(settings.Framing.DataStart + settings.Framing.DataSeperator +
                  settings.Framing.DataEnd + settings.LastLayout,
              QString());
    EXPECT_EQ(settings.Port, 9100);
}

TEST_F(SettingsFiles, ABadValueLeavesItsVariable)
{
    Station.Session.Settings.Port = 9100;
    PutSetting("Port", QStringLiteral("many"));
    PutSetting("MWidth", QStringLiteral("99999999999"));
    PutSetting("SPort", QStringLiteral("256"));
    PutSetting("UseIP", QStringLiteral("perhaps"));
    PutSetting("Filter_Lf", QStringLiteral("True"));
    LoadSettings(Station.Session);
    EXPECT_EQ(Station.Session.Settings.Port, 9100);
    EXPECT_EQ(Station.Session.Settings.MWidth, 0);
    EXPECT_EQ(Station.Session.Settings.SPort, 0);
    EXPECT_FALSE(Station.Session.Settings.UseIP);
    EXPECT_TRUE(Station.Session.Settings.Filters.Lf);
}

TEST_F(SettingsFiles, NumbersRoundHalfToEven)
{
    PutSetting("MTop", QStringLiteral("2.5"));
    PutSetting("MLeft", QStringLiteral("3.5"));
    LoadSettings(Station.Session);
    EXPECT_EQ(Station.Session.Settings.MTop, 2);
    EXPECT_EQ(Station.Session.Settings.MLeft, 4);
}

TEST_F(SettingsFiles, TheLastLayoutBecomesTheCurrentOne)
{
    PutSetting("LastLayout", QStringLiteral("Badge"));
    LoadSettings(Station.Session);
    EXPECT_EQ(Station.Session.CurrentLayoutName, QStringLiteral("Badge"));
}

TEST_F(SettingsFiles, EachSessionHasItsSection)
{
    SaveSetting(Station.Session, SettingNumber::Port, QStringLiteral("1111"));
    Station.Session.SessionNumber = 22;
    SaveSetting(Station.Session, SettingNumber::Port, QStringLiteral("2222"));
    LoadSettings(Station.Session);
    EXPECT_EQ(Station.Session.Settings.Port, 2222);
    Station.Session.SessionNumber = 1;
    LoadSettings(Station.Session);
    EXPECT_EQ(Station.Session.Settings.Port, 1111);
    EXPECT_EQ(SessionSection(Station.Session), QStringLiteral("Session 1"));
}

TEST_F(SettingsFiles, VisibleIsWrittenBesideTheFolderAndReadInIt)
{
    const QString folder = Station.Folder.filePath(QStringLiteral("Aside"));
    ASSERT_TRUE(QDir().mkdir(folder));
    vantrel::Session session(folder, Station.Operator, Station.Printers);
    SaveSetting(session, SettingNumber::Visible, QStringLiteral("False"));

    EXPECT_EQ(Saved(Station.Folder.filePath(QStringLiteral("AsideSessionStatus.ini")), "Visible"),
              QStringLiteral("False"));
    EXPECT_FALSE(QFile::exists(SessionStatusPath(session.ProgramFolder)));
    EXPECT_FALSE(QFile::exists(SettingsPath(session.ProgramFolder)));
    LoadSettings(session);
    EXPECT_TRUE(session.Settings.MainVisible);

    Put(SessionStatusPath(session.ProgramFolder), QStringLiteral("Visible"),
        QStringLiteral("False"));
    LoadSettings(session);
    EXPECT_FALSE(session.Settings.MainVisible);
}

TEST_F(SettingsFiles, ABackgroundIsAPictureANumberOrNothing)
{
    const BackgroundSetting& background = Station.Session.Settings.Background;

    PutSetting("Background", QStringLiteral("16711680"));
    LoadSettings(Station.Session);
    ASSERT_TRUE(std::holds_alternative<double>(background));
    EXPECT_EQ(std::get<double>(background), 16711680.0);

    PutSetting("Background", Station.WritePng(QStringLiteral("Wall.png"), 4, 3));
    LoadSettings(Station.Session);
    ASSERT_TRUE(std::holds_alternative<Picture>(background));
    EXPECT_EQ(std::get<Picture>(background).Image().width(), 4);

    for (const QString& neither :
         {QString(), QStringLiteral("blue"), Station.Session.PathInFolder(QStringLiteral("no.png")),
          Station.Folder.path(), SettingsPath(Station.Session.ProgramFolder)}) {
        PutSetting("Background", neither);
        LoadSettings(Station.Session);
        EXPECT_TRUE(std::holds_alternative<std::monostate>(background)) << neither.toStdString();
    }
}

TEST_F(SettingsFiles, ALineFeedIsStoredAsABlankAndACarriageReturnStays)
{
    SaveSetting(Station.Session, SettingNumber::DataEnd, QStringLiteral("a\r\nb\nc\rd"));
    EXPECT_EQ(Saved("DataEnd"), QStringLiteral("a\r b c\rd"));
}

TEST_F(SettingsFiles, ALongValueComesBackCut)
{
    SaveSetting(Station.Session, SettingNumber::SSettings, QString(256, QLatin1Char('9')));
    LoadSettings(Station.Session);
    EXPECT_EQ(Station.Session.Settings.SSettings, QString(255, QLatin1Char('9')));
}

TEST_F(SettingsFiles, ANumberOutsideTheTableWritesNothing)
{
    for (const std::int32_t number : {31, 33, 35, -1, 0x2A004C}) {
        SaveSetting(Station.Session, number, QStringLiteral("1"));
        EXPECT_FALSE(QFile::exists(SettingsPath(Station.Session.ProgramFolder))) << number;
    }
}

TEST_F(SettingsFiles, AFolderThatIsGoneIsReportedByNothing)
{
    vantrel::Session session(Station.Folder.filePath(QStringLiteral("none/here")), Station.Operator,
                             Station.Printers);
    EXPECT_NO_THROW(SaveSetting(session, SettingNumber::Port, QStringLiteral("1")));
    EXPECT_NO_THROW(LoadSettings(session));
    EXPECT_EQ(session.Settings.Port, 10001);
}

TEST_F(SettingsFiles, SessionsWritingAtOnceLoseNothing)
{
    constexpr int sessions = 4;
    constexpr int rounds = 10;
    std::vector<std::thread> threads;
    for (int n = 1; n <= sessions; ++n) {
        threads.emplace_back([this, n] {
            vantrel::Session session(Station.Session.ProgramFolder, Station.Operator,
                                     Station.Printers);
            session.SessionNumber = static_cast<std::uint8_t>(n);
            for (int round = 1; round <= rounds; ++round) {
                SaveSetting(session, SettingNumber::MTop, QString::number(n * round));
                SaveSetting(session, SettingNumber::MLeft, QString::number(n + round));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (int n = 1; n <= sessions; ++n) {
        Station.Session.SessionNumber = static_cast<std::uint8_t>(n);
        LoadSettings(Station.Session);
        EXPECT_EQ(Station.Session.Settings.MTop, n * rounds);
        EXPECT_EQ(Station.Session.Settings.MLeft, n + rounds);
    }
}

TEST(SettingsFile, WithoutAFileNameItFailsAsAReadEvenWhenWriting)
{
    ESet2 file;
    const auto check = [](auto&& routine) {
        try {
            routine();
            ADD_FAILURE() << "did not fail";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), 3147000);
            EXPECT_EQ(failure.Text(), QStringLiteral("INI filename not set!"));
            EXPECT_EQ(failure.Source(), QStringLiteral("ReadSetting"));
        }
    };
    check([&] { file.ReadSetting(QStringLiteral("A"), QStringLiteral("x")); });
    check([&] { file.WriteSetting(QStringLiteral("A"), QStringLiteral("x"), QString()); });
}

TEST(SettingsFile, AMissingKeyReadsAsItsDefaultOrAsNothing)
{
    const QTemporaryDir folder;
    ESet2 file;
    file.SetINI_Filename(folder.filePath(QStringLiteral("a.ini")));
    const QString section = QStringLiteral("A");
    const QString key = QStringLiteral("x");
    EXPECT_EQ(file.ReadSetting(section, key), std::nullopt);
    EXPECT_EQ(file.ReadSetting(section, key, QStringLiteral("d")), QStringLiteral("d"));
    file.WriteSetting(section, key, QString());
    EXPECT_EQ(file.ReadSetting(section, key, QStringLiteral("d")), QString());
    EXPECT_EQ(file.INI_Filename(), folder.filePath(QStringLiteral("a.ini")));
}
