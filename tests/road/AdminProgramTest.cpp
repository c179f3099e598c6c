#include "road/AdminRun.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {
QByteArray Contents(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

const QString Init = QStringLiteral("init");
const QString New = QStringLiteral("new");
const QString Existing = QStringLiteral("--existing");
const QString Demo = QStringLiteral("demo");
const QString Macro = QStringLiteral("macro");
const QString Help = QStringLiteral("--help");

/// A program folder that is not there yet.
class AdminProgram : public ::testing::Test
{
protected:
    QStringList Entries() const
    {
        return QDir(Folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    QStringList MacroCommand(const QString& verb, const QStringList& names = {}) const
    {
        return QStringList({Macro, verb, Folder}) + names;
    }
    QString Listed() const { return RunAdmin(MacroCommand(QStringLiteral("list"))).Out; }

    QTemporaryDir Outer;
    QString Folder = Outer.filePath(QStringLiteral("Station é"));
};
} // namespace

TEST_F(AdminProgram, InitMakesAFolderThatAStationCanStartIn)
{
    ExpectDone({Init, Folder});
    EXPECT_EQ(Entries(),
              QStringList({QStringLiteral("SessionStatus.ini"), QStringLiteral("Vantrel.dat")}));
    EXPECT_EQ(Contents(Folder + QStringLiteral("/SessionStatus.ini")),
              QByteArray("[Session 1]\r\nVisible=True\r\nActive=True\r\n"));
    Connection store;
    EXPECT_NO_THROW(store.Open(Folder + QStringLiteral("/Vantrel.dat")));
}

TEST_F(AdminProgram, NewMakesAFolderWithTheRecommendedSettings)
{
    ExpectDone({New, Folder});
    EXPECT_EQ(Entries(),
              QStringList({QStringLiteral("SessionStatus.ini"), QStringLiteral("Vantrel 6.ini"),
                           QStringLiteral("Vantrel.dat")}));
    EXPECT_EQ(Contents(Folder + QStringLiteral("/Vantrel 6.ini")),
              QByteArray("[Station]\r\nLedger=True\r\nKeepEveryRecord=True\r\nUniqueNumbers="
                         "True\r\nDesignTools=True\r\n"));
}

TEST_F(AdminProgram, NewLeavesAFolderThatIsThereAsItIs)
{
    ExpectDone({Init, Folder});
    const QStringList entries = Entries();
    ExpectOneLine(1, {New, Folder});
    EXPECT_EQ(Entries(), entries);
}

TEST_F(AdminProgram, NewForAnExistingFolderKeepsACopyOfItsSettings)
{
    ExpectOneLine(1, {New, Folder, Existing});
    EXPECT_FALSE(QDir(Folder).exists());
    ExpectDone({Init, Folder});
    const QString settings = Folder + QStringLiteral("/Vantrel 6.ini");
    const QByteArray before = "[Station]\r\nLedger=False\r\nCamera=default\r\n";
    {
        QFile file(settings);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(before);
    }
    const Outcome outcome = RunAdmin({New, Existing, Folder});
    EXPECT_EQ(outcome.Code, 0) << outcome.Errors.toStdString();
    EXPECT_EQ(Contents(settings),
              QByteArray("[Station]\r\nLedger=True\r\nCamera=default\r\n"
                         "KeepEveryRecord=True\r\nUniqueNumbers=True\r\nDesignTools=True\r\n"));
    const QStringList copies =
        QDir(Folder).entryList({QStringLiteral("Vantrel 6.ini.*")}, QDir::Files);
    ASSERT_EQ(copies.size(), 1);
    EXPECT_EQ(Contents(QDir(Folder).filePath(copies.at(0))), before);
    EXPECT_TRUE(outcome.Out.contains(copies.at(0))) << outcome.Out.toStdString();
}

TEST_F(AdminProgram, NewForAnExistingFolderWithoutSettingsMakesThem)
{
    ExpectDone({Init, Folder});
    EXPECT_EQ(RunAdmin({New, Folder, Existing}).Code, 0);
    EXPECT_EQ(Entries(),
              QStringList({QStringLiteral("SessionStatus.ini"), QStringLiteral("Vantrel 6.ini"),
                           QStringLiteral("Vantrel.dat")}));
}

TEST_F(AdminProgram, ACommandWithoutItsVerbReportsThatAWordIsMissing)
{
    const Outcome outcome = RunAdmin({Macro});
    EXPECT_EQ(outcome.Code, 2);
    EXPECT_TRUE(outcome.Errors.contains(QStringLiteral("a word is missing behind: macro")))
        << outcome.Errors.toStdString();
}

TEST_F(AdminProgram, AnExistingDatabaseIsNeverOverwritten)
{
    ExpectDone({Init, Folder});
    ExpectDone(MacroCommand(QStringLiteral("add"), {QStringLiteral("Mine")}));
    const QByteArray before = Contents(Folder + QStringLiteral("/Vantrel.dat"));
    const QStringList entries = Entries();
    ExpectOneLine(1, {Init, Folder});
    ExpectOneLine(1, {Demo, Folder});
    EXPECT_EQ(Contents(Folder + QStringLiteral("/Vantrel.dat")), before);
    EXPECT_EQ(Entries(), entries);
}

TEST_F(AdminProgram, MacrosAreAddedRenamedRemovedAndListed)
{
    const QString first = QStringLiteral("Card and carrier");
    const QString second = QStringLiteral("Größe €");
    const QString third = QStringLiteral("-x");
    ExpectDone({Init, Folder});
    EXPECT_EQ(Listed(), QString());
    ExpectDone(MacroCommand(QStringLiteral("add"), {first}));
    ExpectDone(MacroCommand(QStringLiteral("add"), {second}));
    ExpectDone(MacroCommand(QStringLiteral("add"), {QStringLiteral("--"), third}));
    EXPECT_EQ(Listed(), QString(first + u'\n' + second + u'\n' + third + u'\n'));
    ExpectDone(MacroCommand(QStringLiteral("rename"), {first, QStringLiteral("Badges")}));
    ExpectDone(MacroCommand(QStringLiteral("remove"), {second}));
    EXPECT_EQ(Listed(), QString(QStringLiteral("Badges\n") + third + u'\n'));
}

TEST_F(AdminProgram, AnInvalidMacroGivesOneLineAndExitCodeOne)
{
    ExpectDone({Init, Folder});
    const QString name = QStringLiteral("Badges");
    ExpectDone(MacroCommand(QStringLiteral("add"), {name}));
    ExpectOneLine(1, MacroCommand(QStringLiteral("add"), {name}));
    ExpectOneLine(1, MacroCommand(QStringLiteral("add"), {QStringLiteral("O'Brien")}));
    ExpectOneLine(1, MacroCommand(QStringLiteral("add"), {QStringLiteral("two\nlines")}));
    ExpectOneLine(1, MacroCommand(QStringLiteral("rename"), {QStringLiteral("None"), name}));
    ExpectOneLine(1, MacroCommand(QStringLiteral("remove"), {QStringLiteral("no\nsuch")}));
    EXPECT_EQ(Listed(), QString(name + u'\n'));
}

TEST_F(AdminProgram, WithoutADatabaseMacroCommandsFailAndMakeNone)
{
    ExpectOneLine(1, MacroCommand(QStringLiteral("list")));
    ExpectOneLine(1, MacroCommand(QStringLiteral("add"), {QStringLiteral("Badges")}));
    EXPECT_FALSE(QDir(Folder).exists());
}

TEST_F(AdminProgram, DemoMakesACardToPrint)
{
    ExpectDone({Demo, Folder});
    EXPECT_EQ(Entries(),
              QStringList({QStringLiteral("Images"), QStringLiteral("SessionStatus.ini"),
                           QStringLiteral("Vantrel 6.ini"), QStringLiteral("Vantrel.dat")}));
    EXPECT_EQ(Contents(Folder + QStringLiteral("/Vantrel 6.ini")),
              QByteArray("[Station]\r\nLedger=True\r\nKeepEveryRecord=True\r\n"
                         "UniqueNumbers=True\r\nDesignTools=True\r\n[Session "
                         "1]\r\nLastLayout=Member Card\r\nCaptureEnabled=True\r\n"
                         "UseIP=True\r\nPort=10001\r\nFilter_Cr=True\r\nFilter_Lf=True\r\n"));
    Connection store;
    store.Open(Folder + QStringLiteral("/Vantrel.dat"));
    Recordset rows(store);
    rows.Open(QStringLiteral("SELECT * FROM [LayoutParams] WHERE [LayoutName] = 'Member Card'"));
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.Value(QStringLiteral("BackImg1")).toString(),
              QString(Folder + QStringLiteral("/Images/card-front.jpg")));
    QStringList pictures;
    for (const char* name : {"badge", "card-back", "card-front", "gift-back", "gift-front",
                             "library", "pass-back", "pass-front", "portrait", "transport"})
        pictures.append(QString::fromLatin1(name) + QStringLiteral(".jpg"));
    EXPECT_EQ(QDir(Folder + QStringLiteral("/Images")).entryList(QDir::Files), pictures);
}

TEST_F(AdminProgram, HelpIsOnStandardOutput)
{
    const QList<QStringList> asked = {
        {Help},
        {QStringLiteral("-h")},
        {QStringLiteral("--version")},
        {Init, Help},
        {Demo, Help},
        {Macro, Help},
        {Macro, QStringLiteral("list"), Help},
        {Macro, QStringLiteral("add"), Help},
        {Macro, QStringLiteral("rename"), Help},
        {Macro, QStringLiteral("remove"), Help, Folder},
    };
    for (const QStringList& arguments : asked) {
        const Outcome outcome = RunAdmin(arguments);
        EXPECT_EQ(outcome.Code, 0) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(outcome.Out.contains(QStringLiteral("vantrel-admin")));
        EXPECT_EQ(outcome.Errors, QString());
    }
    EXPECT_FALSE(QDir(Folder).exists());
}

TEST_F(AdminProgram, AnUnknownCommandGivesOneLineAndExitCodeTwo)
{
    const QList<QStringList> lines = {
        {},
        {QStringLiteral("--nonsense")},
        {QStringLiteral("nonsense"), Folder},
        {QStringLiteral("nonsense"), Help},
        {Init},
        {Init, QString()},
        {Init, Folder, Folder},
        {Init, QStringLiteral("--force"), Folder},
        {New},
        {New, Folder, Folder},
        {New, QStringLiteral("--existing=True"), Folder},
        {Init, Existing, Folder},
        {Demo},
        {Macro},
        {Macro, Folder},
        {Macro, QStringLiteral("list")},
        {Macro, QStringLiteral("add"), Folder},
        {Macro, QStringLiteral("add"), Folder, QString()},
        {Macro, QStringLiteral("rename"), Folder, QStringLiteral("A")},
        {Macro, QStringLiteral("remove"), Folder},
    };
    for (const QStringList& arguments : lines)
        ExpectOneLine(2, arguments);
    EXPECT_FALSE(QDir(Folder).exists());
}

} // namespace vantrel::test
