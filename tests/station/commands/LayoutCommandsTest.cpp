#include "station/capture/Pipeline.h"
#include "station/commands/Commands.h"
#include "station/layout/DeleteLayout.h"
#include "station/layout/LoadLayout.h"
#include "store/Recordset.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

int CountRows(Session& session, const char* table, const QString& layoutName)
{
    Recordset rows(session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [%1] WHERE [LayoutName] = '%2'")
                  .arg(QLatin1StringView(table), layoutName),
              CursorLock::Optimistic);
    int count = 0;
    for (; !rows.IsEof(); rows.MoveNext())
        ++count;
    return count;
}

class LayoutCommandTest : public ::testing::Test
{
protected:
    LayoutCommandTest()
    {
        Station.WithDatabase();
        for (const char* name : {"Visitor", "Badge"}) {
            BeginLayout(Session, QLatin1StringView(name));
            AddField(Session, 1);
            SavePage(Session);
        }
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

TEST_F(LayoutCommandTest, NewBeginsALayoutOfTheNameGiven)
{
    Session.CurrentParams.PrinterType = 9;
    Session.CurrentParams.Encode = true;
    Session.CurrentParams.Track1 = QStringLiteral("DAT1");
    Station.Operator.Inputs = {QStringLiteral("Fresh")};
    NewCommand(Session);
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Fresh"));
    EXPECT_EQ(Session.Face.Caption(), QStringLiteral(" Ostrand Vantrel v6.0   (Fresh)"));
    EXPECT_EQ(Session.CurrentParams.PrinterType, 1);
    EXPECT_FALSE(Session.CurrentParams.Encode);
    EXPECT_EQ(Session.CurrentParams.Track1, QString());
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_DATA), 0);
    EXPECT_TRUE(Session.Document.IsShown());
    EXPECT_EQ(Station.Operator.InputBoxes,
              QStringList{QStringLiteral("New Layout|Enter Layout Name|")});
    EXPECT_EQ(CountRows(Session, "Controls", QStringLiteral("Fresh")), 0);
}

TEST_F(LayoutCommandTest, NewWithoutANameChangesNothing)
{
    NewCommand(Session);
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Badge"));
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_DATA), 1);
}

TEST_F(LayoutCommandTest, DeleteLayoutAsksAndTakesItsRowsOnYesOnly)
{
    DeleteLayoutCommand(Session);
    EXPECT_EQ(CountRows(Session, "Controls", QStringLiteral("Badge")), 1);
    Station.Operator.Answers = {true};
    DeleteLayoutCommand(Session);
    EXPECT_EQ(CountRows(Session, "Controls", QStringLiteral("Badge")), 0);
    EXPECT_EQ(CountRows(Session, "LayoutParams", QStringLiteral("Badge")), 0);
    EXPECT_EQ(CountRows(Session, "Controls", QStringLiteral("Visitor")), 1);
    EXPECT_EQ(Session.CurrentLayoutName, QString());
    EXPECT_EQ(Session.Face.Caption(), QStringLiteral(" Vantrel v6.0"));
    EXPECT_EQ(Station.Operator.AppMessages.last(),
              QStringLiteral("Really Delete?|Are you sure you want to perminantly delete the "
                             "layout named (Badge) ?"));
}

TEST_F(LayoutCommandTest, WithTheDesignToolsTheQuestionTellsWhatGoesAndItsDefaultIsNo)
{
    Session.Options.DesignTools = true;
    DeleteLayoutCommand(Session);
    EXPECT_EQ(Station.Operator.AppMessages,
              QStringList{QStringLiteral("Really Delete?|Delete the layout (Badge) permanently?"
                                         "\r\nIt has 1 page with 1 object.")});
    EXPECT_EQ(Station.Operator.MessageButtons, std::vector{AppMessageButtons::NoYes});
    EXPECT_EQ(CountRows(Session, "Controls", QStringLiteral("Badge")), 1);
    Station.Operator.Answers = {true};
    DeleteLayoutCommand(Session);
    EXPECT_EQ(CountRows(Session, "Controls", QStringLiteral("Badge")), 0);
}

TEST_F(LayoutCommandTest, WithoutTheDesignToolsEnterStillMeansYes)
{
    DeleteLayoutCommand(Session);
    DeletePageCommand(Session);
    ExitCommand(Session);
    EXPECT_EQ(Station.Operator.MessageButtons, std::vector(3, AppMessageButtons::YesNo));
}

TEST_F(LayoutCommandTest, WithTheDesignToolsEnterDoesNotEndTheStation)
{
    Session.Options.DesignTools = true;
    Session.SessionNumber = 3;
    ExitCommand(Session);
    EXPECT_TRUE(Station.Operator.AppMessages.last().contains(QStringLiteral("Session 3")));
    EXPECT_EQ(Station.Operator.MessageButtons, std::vector{AppMessageButtons::NoYes});
}

TEST_F(LayoutCommandTest, WithTheDesignToolsNewAsksBeforeItTakesANameThatIsThere)
{
    Session.Options.DesignTools = true;
    Station.Operator.Inputs = {QStringLiteral("Visitor"), QStringLiteral("Visitor")};
    NewCommand(Session);
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Badge"));
    EXPECT_EQ(Station.Operator.MessageButtons, std::vector{AppMessageButtons::NoYes});
    Station.Operator.Answers = {true};
    NewCommand(Session);
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Visitor"));
}

TEST_F(LayoutCommandTest, ALayoutOfADeletedNameInheritsItsSerializer)
{
    Recordset rows(Session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [Serializer] WHERE [LayoutName] = 'Badge'"),
              CursorLock::Optimistic);
    rows.AddNew();
    rows.SetValue(QStringLiteral("LayoutName"), QStringLiteral("Badge"));
    rows.Update();
    rows.Close();
    Station.Operator.Answers = {true};
    DeleteLayoutCommand(Session);
    Station.Operator.Inputs = {QStringLiteral("Badge")};
    NewCommand(Session);
    EXPECT_EQ(CountRows(Session, "Serializer", Session.CurrentLayoutName), 1);
}

TEST_F(LayoutCommandTest, AfterADeleteNoLayoutIsOpenAndARecordPrintsNothing)
{
    Session.CurrentParams.PrinterType = PrinterTypeCode::Serialized;
    Session.CurrentParams.LayoutOpen = true;
    Session.CurrentParams.PageIndex = 2;
    Session.CurrentParams.PageCount = 3;
    Station.Operator.Answers = {true};
    DeleteLayoutCommand(Session);
    EXPECT_FALSE(Session.CurrentParams.LayoutOpen);
    EXPECT_FALSE(Session.CurrentParams.AutoSpool);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(Session.CurrentParams.PageCount, 1);
    Station.Printers.Operations.clear();
    ProcessStream(Session, QStringLiteral("<Anna>"));
    EXPECT_EQ(Station.Printers.Operations, QStringList());
}

TEST_F(LayoutCommandTest, TheDeletedLayoutMayBeNamedByTheSessionItself)
{
    DeleteLayoutRows(Session, Session.CurrentLayoutName);
    EXPECT_EQ(CountRows(Session, "Controls", QStringLiteral("Badge")), 0);
}

TEST_F(LayoutCommandTest, ANewPageNeedsALayout)
{
    NewPageCommand(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
    CloseLayout(Session);
    NewPageCommand(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(Session.CurrentParams.PageCount, 1);
    EXPECT_FALSE(Session.Document.IsLoaded());
}

TEST_F(LayoutCommandTest, WithoutALayoutNothingIsAsked)
{
    CloseLayout(Session);
    DeleteLayoutCommand(Session);
    DeletePageCommand(Session);
    EXPECT_EQ(Station.Operator.AppMessages, QStringList());
}

TEST_F(LayoutCommandTest, NewAndDeleteGoOnWithoutAStoreThatAnswers)
{
    Session.LayoutDb.Close();
    Station.Operator.Answers = {true};
    EXPECT_EQ(FailureOf([&] { DeleteLayoutCommand(Session); }), 0);
    EXPECT_EQ(Session.CurrentLayoutName, QString());
    Station.Operator.Inputs = {QStringLiteral("Fresh")};
    EXPECT_EQ(FailureOf([&] { NewCommand(Session); }), 0);
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Fresh"));
}

} // namespace
} // namespace vantrel::test
