#include "base/Profile.h"
#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "road/TestedProgram.h"
#include "support/Events.h"
#include "support/Print.h"
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>

// Cards hold personal data, so files of the programs are for their user and group only, whatever
// the mask for new files of the user who starts them.

namespace vantrel::test {
namespace {

constexpr mode_t ForOthersOrToChange = 0027;
const QString Ini = QStringLiteral("Vantrel 6.ini");
const QString Status = QStringLiteral("SessionStatus.ini");
const QString FirstSession = QStringLiteral("Session 1");

mode_t ModeOf(const QString& path)
{
    struct stat found = {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &found), 0) << path.toStdString();
    return found.st_mode & 07777U;
}

void SetMode(const QString& path, mode_t mode)
{
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0) << path.toStdString();
}

class FileModes : public ::testing::TestWithParam<mode_t>
{
protected:
    FileModes()
    {
        for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
            Start.Environment.insert(QLatin1StringView(name),
                                     Outer.filePath(QStringLiteral("home")));
        Start.BeforeProgram = [] { ::umask(GetParam()); };
        EXPECT_TRUE(QDir().mkpath(Outer.filePath(QStringLiteral("home"))));
        SetMode(Outer.filePath(QStringLiteral("home")), 0700);
    }

    void Admin(const QStringList& arguments) const
    {
        QProcess admin;
        admin.setChildProcessModifier(Start.BeforeProgram);
        admin.start(TestedProgram(VANTREL_ADMIN_PROGRAM), arguments);
        ASSERT_TRUE(admin.waitForFinished(60000));
        ASSERT_EQ(admin.exitCode(), 0) << admin.readAllStandardError().constData();
    }

    QString PathOf(const QString& name) const { return Folder + QLatin1Char('/') + name; }

    /// Every file and folder below the outer one.
    QStringList Made() const
    {
        QStringList paths;
        QDirIterator all(Outer.path(),
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext())
            paths.append(all.next());
        return paths;
    }

    void ExpectNothingForOthers() const
    {
        for (const QString& path : Made())
            EXPECT_EQ(ModeOf(path) & (ForOthersOrToChange | GetParam()), 0U)
                << path.toStdString() << ' ' << std::oct << ModeOf(path);
    }

    void ExpectMade(const QStringList& names) const
    {
        for (const QString& name : names)
            EXPECT_TRUE(QFile::exists(PathOf(name))) << name.toStdString();
    }

    QTemporaryDir Outer;
    QString Folder = Outer.filePath(QStringLiteral("station"));
    StationStart Start;
};

} // namespace

TEST_P(FileModes, AStationsCardsSettingsAndStoreAreNotForOthers)
{
    Admin({QStringLiteral("demo"), Folder});
    ExpectMade({QStringLiteral("Vantrel.dat"), Ini, Status, QStringLiteral("Images/portrait.jpg")});
    ExpectNothingForOthers();
    const int port = FreePort();
    ASSERT_TRUE(WriteProfileValue(PathOf(Ini), FirstSession, QStringLiteral("Port"),
                                  QString::number(port)));
    StationProcess station(Folder, Start);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    SendRecord(port, "<Ada Lovelace+40012345+Gold>");
    const QString card = QStringLiteral("Printed/Session 1/card-000002.pdf");
    ASSERT_TRUE(EventsUntil([&] { return QFile::exists(PathOf(card)); }));
    ExpectMade({QStringLiteral("Vantrel.dat-wal"), QStringLiteral("Vantrel.dat-shm"),
                QStringLiteral("Printed/Session 1/card-000001.pdf")});
    ExpectNothingForOthers();
    // Files that come and go, such as those that lock others, are made under this mask as well.
    QFile process(QStringLiteral("/proc/%1/status").arg(station.Id()));
    ASSERT_TRUE(process.open(QIODevice::ReadOnly));
    const QByteArray mask =
        "\nUmask:\t" +
        QByteArray::number(ForOthersOrToChange | GetParam(), 8).rightJustified(4, '0');
    EXPECT_TRUE(process.readAll().contains(mask)) << mask.toStdString();
    Admin({QStringLiteral("macro"), QStringLiteral("add"), Folder, QStringLiteral("Both")});
    Admin({QStringLiteral("session"), QStringLiteral("stop"), Folder, QStringLiteral("1")});
    EXPECT_EQ(station.ExitCode(), 0);
    ExpectMade({QStringLiteral("../stationSessionStatus.ini")});
    ExpectNothingForOthers();
    EXPECT_EQ(ModeOf(PathOf(card)), 0640U & ~GetParam());
    EXPECT_EQ(ModeOf(PathOf(QStringLiteral("Printed"))), 0750U & ~GetParam());
}

TEST_P(FileModes, AFolderThatAStationFillsItselfIsNotForOthers)
{
    Admin({QStringLiteral("init"), Folder});
    StationProcess station(Folder, Start);
    ASSERT_TRUE(EventsUntil([&] { return station.IsRunning(); }));
    Admin({QStringLiteral("session"), QStringLiteral("stop"), Folder, QStringLiteral("1")});
    EXPECT_EQ(station.ExitCode(), 0);
    ExpectMade({Ini, Status});
    ExpectNothingForOthers();
}

TEST_P(FileModes, FilesThatAnAdministratorOpenedToOthersStayOpen)
{
    Admin({QStringLiteral("init"), Folder});
    ASSERT_TRUE(
        WriteProfileValue(PathOf(Ini), FirstSession, QStringLiteral("Port"), QStringLiteral("0")));
    constexpr mode_t shared = 0664;
    constexpr mode_t sharedFolder = 02775;
    const QString printed = PathOf(QStringLiteral("Printed"));
    ASSERT_TRUE(QDir().mkpath(printed));
    const QStringList files = {PathOf(Ini), PathOf(Status), PathOf(QStringLiteral("Vantrel.dat"))};
    for (const QString& file : files)
        SetMode(file, shared);
    for (const QString& folder : {Folder, printed})
        SetMode(folder, sharedFolder);
    StationProcess station(Folder, Start);
    const QString journal = PathOf(QStringLiteral("Vantrel.dat-wal"));
    // A user who may write to the store must be able to write to its journal too, which gets the
    // store's mode right after it is made.
    EXPECT_TRUE(EventsUntil([&] { return QFile::exists(journal) && ModeOf(journal) == shared; }));
    Admin({QStringLiteral("session"), QStringLiteral("stop"), Folder, QStringLiteral("1")});
    EXPECT_EQ(station.ExitCode(), 0);
    EXPECT_NE(
        ReadProfileValue(PathOf(Ini), FirstSession, QStringLiteral("DynamicFields"), QString()),
        QString())
        << "it has written its settings anew";
    for (const QString& file : files)
        EXPECT_EQ(ModeOf(file), shared) << file.toStdString();
    for (const QString& folder : {Folder, printed})
        EXPECT_EQ(ModeOf(folder), sharedFolder) << folder.toStdString();
}

TEST_P(FileModes, TheStartScriptsFoldersAreNotForOthers)
{
    QTemporaryDir prefix;
    const QDir root(prefix.path());
    ASSERT_TRUE(root.mkpath(QStringLiteral("bin")));
    ASSERT_TRUE(root.mkpath(QStringLiteral("libexec/vantrel")));
    const QString script = root.filePath(QStringLiteral("bin/vantrel"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(VANTREL_START_SCRIPT), script));
    SetMode(script, 0755);
    ASSERT_TRUE(QFile::link(TestedProgram(VANTREL_ADMIN_PROGRAM),
                            root.filePath(QStringLiteral("bin/vantrel-admin"))));
    ASSERT_TRUE(QFile::link(TestedProgram(VANTREL_PROGRAM),
                            root.filePath(QStringLiteral("libexec/vantrel/vantrel"))));
    const QString data = Outer.filePath(QStringLiteral("home/data"));
    Folder = data + QStringLiteral("/vantrel");
    Start.Environment.insert(QStringLiteral("XDG_DATA_HOME"), data);
    Start.Program = script;
    // An empty name counts as no name.
    StationProcess station(QString(), Start);
    ASSERT_TRUE(EventsUntil([&] {
        return FindProfileValue(PathOf(Status), FirstSession, QStringLiteral("Active")).has_value();
    }));
    Admin({QStringLiteral("session"), QStringLiteral("stop"), Folder, QStringLiteral("1")});
    EXPECT_EQ(station.ExitCode(), 0);
    ExpectMade({Ini, Status, QStringLiteral("Vantrel.dat")});
    ExpectNothingForOthers();
}

INSTANTIATE_TEST_SUITE_P(
    UsersMask, FileModes, ::testing::Values(0022, 0000, 0077), [](const auto& test) {
        return QByteArray::number(test.param, 8).rightJustified(3, '0').toStdString();
    });

} // namespace vantrel::test
