#include "road/AdminRun.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// The check of layouts from outside the station.

namespace vantrel::test {
namespace {

/// A folder with a layout that is as it should be.
class AdminCheck : public ::testing::Test
{
protected:
    AdminCheck()
    {
        ExpectDone({QStringLiteral("init"), Folder});
        AddText(QStringLiteral("Good"), 2800);
    }

    QStringList Command(const QStringList& more = {}) const
    {
        return QStringList{QStringLiteral("check"), Folder} + more;
    }
    /// Adds a text that is wider than its box.
    void AddWideText(const QString& layout) const { AddText(layout, 100); }
    void AddText(const QString& layout, int width) const
    {
        Connection store;
        store.Open(Folder + QStringLiteral("/Vantrel.dat"));
        Recordset rows(store);
        rows.Open(QStringLiteral("SELECT * FROM [Controls]"), CursorLock::Optimistic);
        rows.AddNew();
        rows.SetValue(QStringLiteral("LayoutName"), layout);
        rows.SetValue(QStringLiteral("Page"), 1);
        rows.SetValue(QStringLiteral("Control_Type"), QStringLiteral("VB.Label"));
        rows.SetValue(QStringLiteral("C_Param_1"), QStringLiteral("TXT"));
        rows.SetValue(QStringLiteral("C_Value"), QStringLiteral("Visitor \x1b[2J of the museum"));
        rows.SetValue(QStringLiteral("C_Top"), 200);
        rows.SetValue(QStringLiteral("C_Left"), 200);
        rows.SetValue(QStringLiteral("C_Width"), width);
        rows.SetValue(QStringLiteral("C_Height"), 300);
        rows.SetValue(QStringLiteral("C_FontName"), QStringLiteral("Sans"));
        rows.SetValue(QStringLiteral("C_FontSize"), 8);
        rows.Update();
    }

    QTemporaryDir Outer;
    QString Folder = Outer.filePath(QStringLiteral("Station"));
};

} // namespace

TEST_F(AdminCheck, SaysPlainlyThatNothingWasFound)
{
    const Outcome outcome = RunAdmin(Command());
    EXPECT_EQ(outcome.Out, QStringLiteral("Nothing found.\n"));
    EXPECT_EQ(outcome.Errors, QString());
    EXPECT_EQ(outcome.Code, 0);
}

TEST_F(AdminCheck, TellsWhatItFindsAsATableAndByItsExitCode)
{
    AddWideText(QStringLiteral("Wide"));
    const Outcome outcome = RunAdmin(Command());
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Errors, QStringLiteral("vantrel-admin: 1 thing was found on the layouts.\n"));
    EXPECT_TRUE(outcome.Out.contains(QStringLiteral("The text leaves its box: by ")));
    EXPECT_FALSE(outcome.Out.contains(QChar(0x1b)));
    EXPECT_EQ(outcome.Out.count(QLatin1Char('\n')), 2);
}

TEST_F(AdminCheck, TellsProgramsInJson)
{
    AddWideText(QStringLiteral("Wide"));
    const Outcome outcome = RunAdmin(Command({QStringLiteral("--json")}));
    EXPECT_EQ(outcome.Code, 1);
    const QJsonArray found = QJsonDocument::fromJson(outcome.Out.toUtf8())
                                 .object()
                                 .value(QStringLiteral("findings"))
                                 .toArray();
    ASSERT_EQ(found.size(), 1);
    const QJsonObject finding = found.at(0).toObject();
    EXPECT_EQ(finding.value(QStringLiteral("layout")), QStringLiteral("Wide"));
    EXPECT_EQ(finding.value(QStringLiteral("page")), 1);
    EXPECT_EQ(finding.value(QStringLiteral("kind")), QStringLiteral("text-leaves-box"));
    EXPECT_EQ(finding.value(QStringLiteral("weight")), QStringLiteral("warning"));
    EXPECT_FALSE(finding.value(QStringLiteral("advice")).toString().isEmpty());
}

TEST_F(AdminCheck, LooksAtTheNamedLayoutsOnly)
{
    AddWideText(QStringLiteral("Wide"));
    AddWideText(QStringLiteral("Wider"));
    EXPECT_EQ(RunAdmin(Command({QStringLiteral("Good")})).Code, 0);
    const Outcome outcome = RunAdmin(
        Command({QStringLiteral("Wide"), QStringLiteral("Wider"), QStringLiteral("Good")}));
    EXPECT_EQ(outcome.Errors,
              QStringLiteral("vantrel-admin: 2 things were found on the layouts.\n"));
    EXPECT_TRUE(ExpectOneLine(1, Command({QStringLiteral("Other")}))
                    .contains(QStringLiteral("There is no layout Other.")));
}

TEST_F(AdminCheck, FindsAPictureThatIsMissing)
{
    Folder = Outer.filePath(QStringLiteral("Demo"));
    ExpectDone({QStringLiteral("demo"), Folder});
    Connection store;
    store.Open(Folder + QStringLiteral("/Vantrel.dat"));
    QString path;
    {
        Recordset rows(store);
        rows.Open(QStringLiteral("SELECT * FROM [LayoutParams]"));
        for (; !rows.IsEof() && path.isEmpty(); rows.MoveNext())
            path = rows.Value(QStringLiteral("BackImg1")).toString();
    }
    ASSERT_TRUE(QFile::remove(path)) << path.toStdString();
    const Outcome outcome = RunAdmin(Command());
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_TRUE(outcome.Out.contains(QStringLiteral("The picture is missing")));
}

TEST_F(AdminCheck, WantsAFolder)
{
    ExpectOneLine(2, {QStringLiteral("check")});
    ExpectOneLine(1, {QStringLiteral("check"), Outer.filePath(QStringLiteral("nowhere"))});
}

} // namespace vantrel::test
