#include "station/commands/UnsavedPage.h"
#include "card/CheckDigits.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/Navigation.h"
#include "station/layout/NewLayout.h"
#include "station/layout/SaveLayout.h"
#include "store/Schema.h"
#include "support/Layouts.h"
#include "support/PageText.h"
#include "support/WarningGuard.h"
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

// What is unsaved when a station ends without anybody to ask, and is offered at its next start.

namespace vantrel::test {
namespace {

/// A further run of a station in the same program folder.
struct NextRun
{
    explicit NextRun(const vantrel::Session& before)
        : Printers({QStringLiteral("Card Printer")}),
          Session(before.ProgramFolder, Operator, Printers)
    {
        Session.Options.DesignTools = true;
        Session.SessionNumber = before.SessionNumber;
        Session.LayoutDb.Open(before.PathInFolder(QLatin1StringView(LayoutDatabaseName)));
        LoadFirstPage(Session, QStringLiteral("Badge"));
        NoteDesign(Session);
        Operator.WhileAsked = [this] { ++Asked; };
        Page.emplace(Session);
    }

    void Offer(BoxAnswer answer)
    {
        Operator.BoxAnswers = {answer};
        Page->Offer();
    }

    TestOperator Operator;
    RecordingPrinters Printers;
    vantrel::Session Session;
    std::optional<UnsavedPage> Page;
    int Asked = 0;
};

/// A stored layout with an object of each kind, open.
class UnsavedPageKept : public ::testing::Test
{
protected:
    UnsavedPageKept()
    {
        Session.Options.DesignTools = true;
        Station.WithDatabase();
        BeginLayout(Session, Badge);
        AddText(Session, QStringLiteral("Visitor"));
        CardObject& field = AddField(Session, 1);
        field.ToolTipText = QStringLiteral("No. \r!");
        field.Tag = QStringLiteral("-");
        AddNumber(Session, 41).DataMember = WordMod10;
        AddImage(Session, Station.WritePng(QStringLiteral("logo.png"), 9, 9)).Left = 777;
        Draw_CamView(Session.Document, {.cTop = 10, .cLeft = 20, .cHeight = 30, .cWidth = 40}, 0,
                     {}, true, {});
        SavePage(Session);
        OpenLayout(Session, Badge);
        NoteDesign(Session);
        Stored = PageText(Session);
    }

    CardObject& Text() { return *Session.Document.Find(Family::lbl_TEXT, 1); }
    void Change()
    {
        Text().Left = 900;
        Text().SetFont({.Name = QStringLiteral("Liberation Serif"), .Size = 11.25, .Bold = true});
        AddText(Session, QStringLiteral("Größe <&\"> 'x'\nzwei")).ForeColor = 255;
        Session.CurrentParams.Track1 = QStringLiteral("~DAT1~");
        Session.CurrentParams.PrinterCopies = 3;
        NoteDesign(Session);
        Changed = PageText(Session);
    }

    const QString Badge = QStringLiteral("Badge");
    TestSession Station;
    vantrel::Session& Session = Station.Session;
    UnsavedPage Page{Session};
    QString Stored;
    QString Changed;
};

TEST_F(UnsavedPageKept, IsTakenUpAgainAsItWasLeft)
{
    Change();
    Page.Keep();
    NextRun next(Session);
    EXPECT_EQ(PageText(next.Session), Stored);
    next.Offer(BoxAnswer::Yes);
    ASSERT_EQ(next.Operator.Questions,
              QStringList(QStringLiteral("Take Up Changes?|The station ended before page 1 of the "
                                         "layout (Badge) was saved. Take up its changes again?")));
    EXPECT_EQ(PageText(next.Session), Changed);
    EXPECT_TRUE(IsPageUnsaved(next.Session));
    // A further end keeps it again.
    EXPECT_TRUE(QFile::exists(next.Page->Path()));
    UndoDesign(next.Session);
    EXPECT_EQ(PageText(next.Session), Stored);
    RedoDesign(next.Session);
    SavePage(next.Session);
    next.Page->Keep();
    EXPECT_FALSE(QFile::exists(next.Page->Path()));
    ASSERT_TRUE(LoadLayout(Session, Badge));
    EXPECT_EQ(Text().Left, 900);
}

TEST_F(UnsavedPageKept, IsAskedAboutOnceInARunUntilItIsTakenUpOrGivenUp)
{
    Change();
    Page.Keep();
    {
        NextRun next(Session);
        next.Offer(BoxAnswer::Cancel);
        next.Offer(BoxAnswer::Yes);
        next.Page->Keep();
        next.Page->GiveUp();
        EXPECT_EQ(next.Asked, 1);
        EXPECT_EQ(PageText(next.Session), Stored);
    }
    NextRun next(Session);
    next.Offer(BoxAnswer::No);
    EXPECT_EQ(next.Asked, 1);
    EXPECT_EQ(PageText(next.Session), Stored);
    EXPECT_FALSE(QFile::exists(Page.Path()));
    NextRun last(Session);
    last.Offer(BoxAnswer::Yes);
    EXPECT_EQ(last.Asked, 0);
}

TEST_F(UnsavedPageKept, IsNotThereOnceThereIsNothingUnsaved)
{
    Page.Keep();
    EXPECT_FALSE(QFile::exists(Page.Path()));
    Change();
    Page.Keep();
    EXPECT_TRUE(QFile::exists(Page.Path()));
    SavePage(Session);
    Page.Keep();
    EXPECT_FALSE(QFile::exists(Page.Path()));
    Text().Left = 5;
    NoteDesign(Session);
    Page.Keep();
    Page.GiveUp();
    EXPECT_FALSE(QFile::exists(Page.Path()));
    Session.Options.DesignTools = false;
    Page.Keep();
    EXPECT_FALSE(QFile::exists(Page.Path()));
}

TEST_F(UnsavedPageKept, BelongsToItsSession)
{
    Change();
    Page.Keep();
    Session.SessionNumber = 2;
    NextRun next(Session);
    next.Offer(BoxAnswer::Yes);
    EXPECT_EQ(next.Asked, 0);
}

TEST_F(UnsavedPageKept, ComesBackForALayoutAndAPageThatWereNeverSaved)
{
    NewLayout(Session, QStringLiteral("Fresh %1"));
    Session.CurrentParams.AutoSpool = true;
    NoteDesign(Session);
    AddText(Session, QStringLiteral("One"));
    Change();
    Page.Keep();
    {
        NextRun next(Session);
        next.Session.CurrentParams.AutoSpool = false;
        next.Offer(BoxAnswer::Yes);
        EXPECT_EQ(next.Session.CurrentLayoutName, QStringLiteral("Fresh %1"));
        EXPECT_EQ(PageText(next.Session), Changed);
        EXPECT_TRUE(next.Session.CurrentParams.AutoSpool);
        EXPECT_TRUE(next.Session.Document.IsShown());
        SavePage(next.Session);
        next.Page->Keep();
    }
    OpenLayout(Session, Badge);
    NoteDesign(Session);
    BeginPage(Session, 2);
    NoteDesign(Session);
    AddText(Session, QStringLiteral("Back"));
    NoteDesign(Session);
    Page.Keep();
    NextRun next(Session);
    next.Offer(BoxAnswer::Yes);
    EXPECT_EQ(next.Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(next.Session.Document.Find(Family::lbl_TEXT, 1)->Caption(), QStringLiteral("Back"));
    EXPECT_TRUE(IsPageUnsaved(next.Session));
}

TEST_F(UnsavedPageKept, GivesNoNumberTwice)
{
    Change();
    Page.Keep();
    NextRun next(Session);
    // Cards that printed since then.
    Session.Document.Find(Family::lbl_AUTO, 1)->DataField = QStringLiteral("50");
    SavePage(Session);
    next.Offer(BoxAnswer::Yes);
    SavePage(next.Session);
    EXPECT_EQ(StoredNumbers(next.Session, Badge), QStringList(QStringLiteral("50")));
}

TEST_F(UnsavedPageKept, AFileOfAnyContentHarmsNothing)
{
    Change();
    Page.Keep();
    QFile file(Page.Path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    file.close();
    const QByteArray contents[] = {{},
                                   "{}",
                                   "[1,2]",
                                   whole.left(whole.size() / 2),
                                   QByteArray(1'000'000, '['),
                                   R"({"Layout":"Badge","Page":-7,"Objects":[1,{},[],"x"]})",
                                   R"({"Layout":"it's","Page":99999,"Objects":{}})"};
    for (const QByteArray& content : contents) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
        file.close();
        if (!content.contains("Layout\":") || content == whole.left(whole.size() / 2))
            AnnounceWarning(QStringLiteral("There is no page in"));
        NextRun next(Session);
        next.Offer(BoxAnswer::Yes);
        next.Page->GiveUp();
        EXPECT_FALSE(QFile::exists(Page.Path())) << content.left(60).toStdString();
        EXPECT_TRUE(LoadFirstPage(next.Session, Badge));
    }
    NextRun next(Session);
    EXPECT_EQ(PageText(next.Session), Stored);
}

TEST_F(UnsavedPageKept, AFolderThatCannotBeWrittenIsTold)
{
    // The name is taken by a folder.
    ASSERT_TRUE(QDir().mkpath(Page.Path() + QStringLiteral("/inside")));
    Change();
    AnnounceWarning(QStringLiteral("could not be kept"));
    Page.Keep();
    EXPECT_EQ(PageText(Session), Changed);
}

} // namespace
} // namespace vantrel::test
