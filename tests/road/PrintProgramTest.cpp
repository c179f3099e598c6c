#include "road/PrintFolder.h"
#include "road/StationProcess.h"
#include "station/session/StoreLocation.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/PdfReading.h"
#include "support/PrivateCups.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

// Cards from a file, as `vantrel-print` prints them.

namespace vantrel::test {

namespace {

class PrintProgram : public ::testing::Test
{
protected:
    using Outcome = PrintFolder::Outcome;

    /// Expects that nothing was begun, and one plain line that says why. @return that line
    QString ExpectRefused(const QStringList& words, const QByteArray& input = "A,B\n") const
    {
        const Outcome outcome = PrintFolder::RunPlain(words, input);
        EXPECT_EQ(outcome.Code, 2) << words.join(u' ').toStdString();
        EXPECT_EQ(outcome.Out, QString());
        EXPECT_EQ(outcome.Errors.size(), 1) << outcome.Errors.join(u'\n').toStdString();
        EXPECT_TRUE(Folder.Cards().isEmpty());
        const QString line = outcome.Errors.value(0);
        EXPECT_TRUE(line.startsWith(QStringLiteral("vantrel-print: "))) << line.toStdString();
        return line.mid(15);
    }
    QString ExpectRefusedOnLayout(const QStringList& words) const
    {
        return ExpectRefused(QStringList{Home, QStringLiteral("Badge")} + words);
    }
    void ExpectPrints(const QStringList& texts, const QStringList& words,
                      const QByteArray& input = {}) const
    {
        const Outcome outcome = Folder.Run(words, input);
        EXPECT_EQ(outcome.Code, 0) << outcome.Errors.join(u'\n').toStdString();
        EXPECT_EQ(outcome.Errors, QStringList());
        EXPECT_EQ(PrintFolder::TextsOf(Folder.Cards()), texts);
    }

    PrintFolder Folder;
    const QString Home = Folder.Session.ProgramFolder;
    const QString Input = QStringLiteral("-");
};

QStringList Texts(const std::vector<const char*>& texts)
{
    QStringList list;
    for (const char* text : texts)
        list.append(QString::fromUtf8(text));
    return list;
}

} // namespace

TEST_F(PrintProgram, EachRowIsACardInTheUsualFolder)
{
    const QString rows = Folder.Write(QStringLiteral("rows.csv"), "Ada,Gold\n\"Bea, B.\",Blue\n");
    const Outcome outcome = Folder.Run({rows});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Errors, QStringList());
    EXPECT_EQ(outcome.Out, QStringLiteral("2 rows printed: %1/Printed/Print\n").arg(Home));
    EXPECT_EQ(PrintFolder::TextsOf(Folder.Cards()), Texts({"Ada Gold 1001", "Bea, B. Blue 1002"}));
    EXPECT_TRUE(Folder.Cards().at(0).endsWith(QStringLiteral("/card-000001.pdf")));
    EXPECT_EQ(Folder.StoredNumber(), QStringLiteral("1002"));
}

TEST_F(PrintProgram, RowsAreEntriesOfTheLedger)
{
    const QString rows = Folder.Write(QStringLiteral("rows.csv"), "Ada,Gold\nBea,Blue\n");
    EXPECT_EQ(Folder.Run({rows}).Code, 0);
    const auto entries = Folder.Entries();
    ASSERT_EQ(entries.size(), 2U);
    const LedgerEntry& second = entries.at(2);
    EXPECT_EQ(second.State, LedgerState::Printed);
    EXPECT_EQ(second.Source, QStringLiteral("rows.csv:2"));
    EXPECT_EQ(second.Values, Texts({"Bea", "Blue"}));
    ASSERT_EQ(second.Cards.size(), 1U);
    EXPECT_EQ(second.Cards[0].Numbers, Texts({"1002"}));
    EXPECT_EQ(second.Cards[0].File, Folder.Cards().at(1));
}

TEST_F(PrintProgram, WithoutALedgerNothingIsKeptOfTheRows)
{
    Folder.SetOption("Ledger", QStringLiteral("False"));
    EXPECT_EQ(Folder.Run({Folder.WriteRows(3)}).Code, 0);
    EXPECT_EQ(Folder.Cards().size(), 3);
    EXPECT_TRUE(Folder.Entries().empty());
    EXPECT_FALSE(QFileInfo::exists(Folder.PathOf(QStringLiteral("Print-1001.lock"))));
}

TEST_F(PrintProgram, RowsComeFromStandardInput)
{
    ExpectPrints(Texts({"Ada Gold 1001"}), {Input}, "Ada,Gold\n");
    ExpectPrints(Texts({"Ada Gold 1001", "Bea Blue 1002"}), {}, "Bea,Blue");
}

TEST_F(PrintProgram, ARowThatCameIsPrintedWhileTheNextOneIsAwaited)
{
    const auto run = Folder.Start({Input});
    run->write("Ada,Gold\n");
    ASSERT_TRUE(EventsUntil([&] { return Folder.Cards().size() == 1; }));
    run->write("Bea,Blue\n");
    ASSERT_TRUE(EventsUntil([&] { return Folder.Cards().size() == 2; }));
    run->closeWriteChannel();
    EXPECT_EQ(PrintFolder::EndOf(*run).Code, 0);
}

TEST_F(PrintProgram, ColumnsAreTakenByTheirNames)
{
    ExpectPrints(Texts({"Ada Gold 1001"}),
                 {Input, QStringLiteral("--columns"), QStringLiteral("name,\"kind, of card\"")},
                 "no,\"kind, of card\",name\n1,Gold,Ada\n");
}

TEST_F(PrintProgram, ALineOfNamesIsNoCard)
{
    ExpectPrints(Texts({"Ada Gold 1001"}), {Input, QStringLiteral("--header")},
                 "\xEF\xBB\xBFname,kind\r\nAda,Gold\r\n");
}

TEST_F(PrintProgram, TablesMayHaveTabsAndTheOtherEncoding)
{
    ExpectPrints({QStringLiteral("Zoë Gold 1001")},
                 {Input, QStringLiteral("--format=tsv"), QStringLiteral("--encoding=cp1252")},
                 "Zo\xEB\tGold\n");
    const QString rows = Folder.Write(QStringLiteral("rows.tsv"), "Bea\tZo\xC3\xAB\n");
    ExpectPrints({QStringLiteral("Zoë Gold 1001"), QStringLiteral("Bea Zoë 1002")}, {rows});
}

TEST_F(PrintProgram, RecordsAreReadAsHostsSendThem)
{
    ExpectPrints(Texts({"Ada Gold 1001", "Bea Blue 1002"}),
                 {Input, QStringLiteral("--format"), QStringLiteral("records")},
                 "noise<Ada+Gold>\r\n<Bea+Blue>");
}

TEST_F(PrintProgram, ItBeginsAndEndsWithTheRowsThatAreAskedFor)
{
    ExpectPrints(Texts({"A3 x 1001", "A4 x 1002"}),
                 {Folder.WriteRows(9), QStringLiteral("--first=3"), QStringLiteral("--count=2")});
}

TEST_F(PrintProgram, ARowThatFailsIsToldAndTheOthersPrint)
{
    const Outcome outcome = Folder.Run({Input}, "Ada,Gold\nBea\n\nCid,Blue\n");
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Errors, Texts({"vantrel-print: Line 2: 1 value where the first line has 2.",
                                     "vantrel-print: Line 3 is empty."}));
    EXPECT_TRUE(outcome.Out.startsWith(QStringLiteral("2 rows printed, 2 failed: ")));
    EXPECT_EQ(PrintFolder::TextsOf(Folder.Cards()), Texts({"Ada Gold 1001", "Cid Blue 1002"}));
}

TEST_F(PrintProgram, AValueOf100MegabytesIsRefusedWithItsLine)
{
    QByteArray rows = "Ada,Gold\nx,\"";
    rows += QByteArray(qsizetype{100} * 1024 * 1024, 'v') + "\"\nBea,Blue\n";
    const Outcome outcome = Folder.Run({Folder.Write(QStringLiteral("long.csv"), rows)});
    EXPECT_EQ(outcome.Code, 1);
    ASSERT_EQ(outcome.Errors.size(), 1);
    EXPECT_TRUE(outcome.Errors[0].startsWith(QStringLiteral("vantrel-print: Line 2: ")))
        << outcome.Errors[0].toStdString();
    EXPECT_EQ(PrintFolder::TextsOf(Folder.Cards()), Texts({"Ada Gold 1001", "Bea Blue 1002"}));
}

TEST_F(PrintProgram, AMistakeInTheCallIsToldInOneLineBeforeAnyRow)
{
    EXPECT_EQ(
        ExpectRefused({}),
        QStringLiteral("usage: vantrel-print DIR LAYOUT [FILE|-] (see vantrel-print --help)"));
    EXPECT_EQ(ExpectRefused({QStringLiteral("/nonexistent"), QStringLiteral("Badge"), Input}),
              QStringLiteral("There is no layout database in /nonexistent."));
    EXPECT_EQ(ExpectRefused({Home, QStringLiteral("Nope"), Input}),
              QStringLiteral("There is no layout Nope."));
    EXPECT_EQ(ExpectRefused({Home, QStringLiteral("--macro=Nope"), Input}),
              QStringLiteral("There is no macro Nope."));
    EXPECT_EQ(ExpectRefusedOnLayout({QStringLiteral("none.csv")}),
              QStringLiteral("none.csv: No such file or directory"));
    for (const char* words :
         {"--bogus", "--first=0", "--first=x", "--count=-1", "--workers=0", "--workers=1000",
          "--format=xls", "--encoding=latin1", "--columns=", "--columns=nope", "--each=a --one=b",
          "--one=", "--printer=Nope", "--images=/nonexistent", "--format=records --header", "a b"})
        ExpectRefusedOnLayout(QString::fromLatin1(words).split(u' ') + QStringList{Input});
    // The program may be the superuser, who can write everywhere, but not below a file.
    const QString belowFile = Folder.PathOf(QStringLiteral("Vantrel 6.ini/x"));
    ExpectRefusedOnLayout({Input, QStringLiteral("--one"), belowFile});
    ExpectRefusedOnLayout({Input, QStringLiteral("--each"), belowFile});
    EXPECT_EQ(Folder.StoredNumber(), QStringLiteral("1000"));
    EXPECT_TRUE(Folder.Entries().empty());
}

TEST_F(PrintProgram, HelpAndVersionAreTold)
{
    const Outcome help = PrintFolder::RunPlain({QStringLiteral("--help")});
    EXPECT_EQ(help.Code, 0);
    for (const char* option :
         {"--format", "--header", "--columns", "--encoding", "--macro", "--images", "--each",
          "--one", "--printer", "--first", "--count", "--workers", "--dry-run", "--quiet"})
        EXPECT_TRUE(help.Out.contains(QLatin1StringView(option))) << option;
    EXPECT_TRUE(PrintFolder::RunPlain({QStringLiteral("--version")})
                    .Out.startsWith(QStringLiteral("vantrel-print ")));
}

TEST_F(PrintProgram, ATrialPrintsNothingAndTakesNoNumber)
{
    const Outcome outcome = Folder.Run({Input, QStringLiteral("--dry-run")}, "Ada,Gold\nBea\n");
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Out, QStringLiteral("1 row would print, 1 failed\n"));
    EXPECT_FALSE(QFileInfo::exists(Folder.PathOf(QStringLiteral("Printed"))));
    EXPECT_EQ(Folder.StoredNumber(), QStringLiteral("1000"));
    EXPECT_TRUE(Folder.Entries().empty());
}

TEST_F(PrintProgram, QuietTellsFailuresOnly)
{
    const Outcome outcome = Folder.Run({Input, QStringLiteral("--quiet")}, "Ada,Gold\nBea\n");
    EXPECT_EQ(outcome.Out, QString());
    EXPECT_EQ(outcome.Errors.size(), 1);
}

TEST_F(PrintProgram, AllCardsMayBecomeOneFile)
{
    const QString book = Folder.PathOf(QStringLiteral("all.pdf"));
    const Outcome outcome = Folder.Run({Folder.WriteRows(130), QStringLiteral("--one"), book});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(PagesOfPdf(book), 130);
    EXPECT_TRUE(TextsOfPages(book).last().contains(QStringLiteral("A130 x 1130")));
    ExpectValidPdf(book);
    const auto entries = Folder.Entries();
    ASSERT_EQ(entries.size(), 130U);
    for (const auto& [id, entry] : entries) {
        EXPECT_EQ(entry.State, LedgerState::Printed) << id;
        EXPECT_EQ(entry.Cards.at(0).File, book);
    }
    EXPECT_EQ(ExpectRefusedOnLayout({Input, QStringLiteral("--one"), book}),
              QStringLiteral("there is already a file %1").arg(book));
}

TEST_F(PrintProgram, WorkersMakeTheSameCardsInTheSameOrder)
{
    const QString rows = Folder.WriteRows(300);
    const QString shared = Folder.PathOf(QStringLiteral("shared"));
    EXPECT_EQ(
        Folder.Run({rows, QStringLiteral("--each"), shared, QStringLiteral("--workers=3")}).Code,
        0);
    const QStringList cards = PrintFolder::CardsIn(shared);
    ASSERT_EQ(cards.size(), 300);
    for (const int row : {1, 63, 64, 65, 128, 129, 200, 300}) {
        EXPECT_EQ(TextOfPdf(shared + QStringLiteral("/card-%1.pdf").arg(row, 6, 10, QChar(u'0'))),
                  QStringLiteral("A%1 x %2").arg(row).arg(1000 + row));
    }
    for (const auto& [id, entry] : Folder.Entries()) {
        EXPECT_EQ(entry.State, LedgerState::Printed);
        EXPECT_EQ(entry.Values.at(0), QStringLiteral("A%1").arg(id));
        EXPECT_EQ(entry.Cards.at(0).Numbers.at(0), QString::number(1000 + id));
    }
}

TEST_F(PrintProgram, FurtherCardsAreNumberedBehindThoseOfAFolder)
{
    ASSERT_TRUE(QDir(Home).mkpath(QStringLiteral("Printed/Print")));
    Folder.Write(QStringLiteral("Printed/Print/card-000041.pdf"), "%PDF");
    EXPECT_EQ(Folder.Run({Folder.WriteRows(2)}).Code, 0);
    EXPECT_EQ(TextOfPdf(Folder.PathOf(QStringLiteral("Printed/Print/card-000043.pdf"))),
              QStringLiteral("A2 x 1002"));
}

TEST_F(PrintProgram, CardsGoToAPrinter)
{
    PrivateCups server;
    server.AddQueue(QStringLiteral("Cards"));
    const Outcome outcome =
        Folder.Run({Folder.WriteRows(2), QStringLiteral("--printer"), QStringLiteral("Cards")});
    EXPECT_EQ(outcome.Code, 0) << outcome.Errors.join(u'\n').toStdString();
    const auto jobs = server.WaitForJobs(2);
    ASSERT_EQ(jobs.size(), 2);
    EXPECT_EQ(TextOfPdf(jobs[1].PdfPath), QStringLiteral("A2 x 1002"));
    const auto entries = Folder.Entries();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries.at(2).Cards.at(0).Printer, QStringLiteral("Cards"));
    EXPECT_TRUE(entries.at(2).Cards.at(0).Job);
}

TEST_F(PrintProgram, APictureForEachCardIsNamedByAColumn)
{
    Folder.Session.LayoutDb.Open(StoreLocation(Home));
    // The station knows the folder, so it keeps a path that only rows complete.
    Folder.Session.Pictures.Folder = Folder.PathOf(QStringLiteral("photos"));
    AddImage(Folder.Session, QStringLiteral("{photo}.png"), {2200, 300, 700, 700});
    SavePage(Folder.Session);
    Folder.Session.LayoutDb.Close();
    ASSERT_TRUE(QDir(Home).mkdir(QStringLiteral("photos")));
    Folder.WritePng(QStringLiteral("photos/ada.png"), 20, 20);
    Folder.WritePng(QStringLiteral("secret.png"), 20, 20);
    const Outcome outcome =
        Folder.Run({Input, QStringLiteral("--header"), QStringLiteral("--images"),
                    Folder.PathOf(QStringLiteral("photos"))},
                   "name,photo\nAda,ada\nBea,../secret\nCid,none\n");
    EXPECT_EQ(outcome.Code, 0);
    ASSERT_EQ(outcome.Errors.size(), 2);
    EXPECT_TRUE(outcome.Errors[0].startsWith(
        QStringLiteral("vantrel-print: Line 3: The picture {photo}.png is missing: ")))
        << outcome.Errors[0].toStdString();
    EXPECT_EQ(PictureObjectsOfPdf(Folder.Cards().at(0)).size(), 1);
    EXPECT_EQ(PictureObjectsOfPdf(Folder.Cards().at(1)).size(), 0);
    EXPECT_EQ(PictureObjectsOfPdf(Folder.Cards().at(2)).size(), 0);
    const auto entries = Folder.Entries();
    EXPECT_EQ(entries.at(2).State, LedgerState::Printed);
    EXPECT_TRUE(entries.at(2).Reason.startsWith(QStringLiteral("The picture {photo}.png")));
}

} // namespace vantrel::test
