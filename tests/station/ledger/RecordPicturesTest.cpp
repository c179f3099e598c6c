#include "StationWithLedger.h"
#include "station/layout/PageDescription.h"
#include "station/print/CardAsPrinted.h"
#include "support/WarningGuard.h"
#include <QDir>
#include <QFile>

// A photo for each card, named by a value of its record.

namespace vantrel::test {

namespace {

/// A page with a photo that the first value names.
class RecordPictures : public StationWithLedger
{
protected:
    RecordPictures()
    {
        QDir(Session.ProgramFolder).mkdir(QStringLiteral("photos"));
        Session.Pictures.Folder = Session.PathInFolder(QStringLiteral("photos"));
        Station.WritePng(QStringLiteral("photos/Ada.png"), 8, 4);
        Station.WritePng(QStringLiteral("photos/Bea.png"), 16, 4);
        Station.WritePng(QStringLiteral("secret.png"), 2, 2);
        AddImage(Session, QStringLiteral("{1}.png"), {100, 200, 300, 400});
        SavePage(Session);
        LoadFirstPage(Session, Name);
    }

    QStringList Pictures() const { return Station.Printers.Only({QStringLiteral("PaintPicture")}); }
    void ExpectMissing(const char* record, const QString& why)
    {
        SCOPED_TRACE(record);
        Station.Printers.Operations.clear();
        Answers.clear();
        AnnounceWarning(QStringLiteral("A card of Badge: The picture {1}.png is missing"));
        ASSERT_TRUE(Arrive(record));
        EXPECT_FALSE(Pictures().join(u' ').contains(QStringLiteral("pixels")));
        EXPECT_EQ(Printed().size(), 2);
        ASSERT_EQ(Answers.size(), 1);
        EXPECT_TRUE(Answers[0].startsWith(QStringLiteral("OK "))) << qPrintable(Answers[0]);
        const LedgerEntry entry = Entry(Answers[0].section(QLatin1Char(' '), 1, 1).toLongLong());
        EXPECT_EQ(entry.State, LedgerState::Printed);
        EXPECT_EQ(entry.Reason, QStringLiteral("The picture {1}.png is missing: %1.").arg(why));
        EXPECT_EQ(entry.Cards.at(0).State, LedgerState::Printed);
        EXPECT_EQ(entry.Cards.at(0).Reason, entry.Reason);
    }
};

} // namespace

TEST_F(RecordPictures, EachRecordPrintsItsOwn)
{
    ASSERT_TRUE(Arrive("<Ada>"));
    ASSERT_TRUE(Arrive("<Bea>"));
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_THAT(Pictures(), testing::ElementsAre(
                                QStringLiteral("PaintPicture(8 x 4 pixels, 200, 100, 400, 300)"),
                                QStringLiteral("PaintPicture(16 x 4 pixels, 200, 100, 400, 300)"),
                                QStringLiteral("PaintPicture(8 x 4 pixels, 200, 100, 400, 300)")));
    EXPECT_EQ(Entry(1).Reason, QString());
    EXPECT_EQ(Entry(1).Cards.at(0).Reason, QString());
}

TEST_F(RecordPictures, TheDesignSurfaceShowsThatOfTheLastRecord)
{
    ASSERT_TRUE(Arrive("<Bea>"));
    const CardObject* image = Session.Document.Find(Family::img_LXV, 1);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->Picture.Image().width(), 16);
    EXPECT_EQ(image->Tag, QStringLiteral("{1}.png"));
}

TEST_F(RecordPictures, WhatIsNotInTheFolderIsMissingAndTheCardTellsWhy)
{
    ASSERT_TRUE(QFile::link(Session.PathInFolder(QStringLiteral("secret.png")),
                            Session.PathInFolder(QStringLiteral("photos/link.png"))));
    QFile text(Session.PathInFolder(QStringLiteral("photos/text.png")));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    ASSERT_TRUE(QDir(Session.Pictures.Folder).mkdir(QStringLiteral("folder.png")));
    ExpectMissing("<Zoe>", QStringLiteral("\"Zoe.png\" is not in the folder"));
    ExpectMissing("<../secret>", QStringLiteral("\"../secret.png\" leads out of the folder"));
    ExpectMissing(
        "</etc/secret>",
        QStringLiteral("\"/etc/secret.png\" is no name within the folder, but a whole path"));
    ExpectMissing("<a\x1b[2J\nb>",
                  QStringLiteral("\"a\uFFFD[2J\uFFFDb.png\" is not in the folder"));
    ExpectMissing("<link>", QStringLiteral("\"link.png\" leads over a link"));
    ExpectMissing("<text>", QStringLiteral("\"text.png\" is no picture, or not a whole one"));
    ExpectMissing("<folder>", QStringLiteral("\"folder.png\" is no file"));
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_EQ(Pictures().last(), QStringLiteral("PaintPicture(8 x 4 pixels, 200, 100, 400, 300)"));
}

TEST_F(RecordPictures, AValueOfMegabytesIsRefusedAsAName)
{
    AnnounceWarning(QStringLiteral("is missing"));
    ASSERT_TRUE(Arrive(QByteArray("<" + QByteArray(16 << 20, 'x') + ">").constData()));
    const QString reason = Entry(1).Cards.at(0).Reason;
    EXPECT_TRUE(reason.contains(QStringLiteral("cannot be opened"))) << qPrintable(reason);
    EXPECT_LT(reason.size(), 400);
    EXPECT_EQ(Entry(1).State, LedgerState::Printed);
}

TEST_F(RecordPictures, WhereValuesAreNotKeptNeitherLogNorLedgerNamesThem)
{
    Session.Options.LedgerValues = false;
    OpenLedger(Session);
    AnnounceWarning(QStringLiteral("A card of Badge: The picture {1}.png is missing."));
    ASSERT_TRUE(Arrive("<Zoe>"));
    EXPECT_EQ(Entry(1).Cards.at(0).Reason, QStringLiteral("The picture {1}.png is missing."));
}

TEST_F(RecordPictures, WithNoFolderNamedAPlaceholderIsAPartOfThePath)
{
    Session.Pictures.Folder.clear();
    const QString path = Station.WritePng(QStringLiteral("photos/{1}.png"), 24, 4);
    LoadFirstPage(Session, Name);
    Session.Document.Find(Family::img_LXV, 1)->Tag = path;
    SavePage(Session);
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_THAT(Pictures(), testing::ElementsAre(
                                QStringLiteral("PaintPicture(24 x 4 pixels, 200, 100, 400, 300)")));
    EXPECT_EQ(Entry(1).Cards.at(0).Reason, QString());
}

TEST_F(RecordPictures, APictureChosenInTheFolderStandsForThoseOfAllRecords)
{
    const QString sample = Station.WritePng(QStringLiteral("photos/{1}.png"), 24, 4);
    Session.Document.Find(Family::img_LXV, 1)->Tag = sample;
    SavePage(Session);
    LoadFirstPage(Session, Name);
    EXPECT_EQ(Session.Document.Find(Family::img_LXV, 1)->Picture.Image().width(), 24);
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_THAT(Pictures(), testing::ElementsAre(
                                QStringLiteral("PaintPicture(8 x 4 pixels, 200, 100, 400, 300)")));
}

TEST_F(RecordPictures, AReprintShowsThePictureOfItsOwnRecord)
{
    ASSERT_TRUE(Arrive("<Bea>"));
    ASSERT_TRUE(Arrive("<Ada>"));
    Station.Printers.Operations.clear();
    AskReprint(Store(), 1, ReprintMode::Once);
    TakeStoredRecords(Session);
    EXPECT_THAT(Pictures(), testing::ElementsAre(
                                QStringLiteral("PaintPicture(16 x 4 pixels, 200, 100, 400, 300)")));
    ASSERT_TRUE(QFile::remove(Session.PathInFolder(QStringLiteral("photos/Bea.png"))));
    AnnounceWarning(QStringLiteral("A card of Badge: The picture {1}.png is missing"));
    const qlonglong again = AskReprint(Store(), 1, ReprintMode::Again);
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(again).State, LedgerState::Printed);
    EXPECT_EQ(Entry(again).Reason,
              QStringLiteral("The picture {1}.png is missing: \"Bea.png\" is not in the folder."));
}

TEST_F(RecordPictures, TheHistoryShowsTheCardWithThePictureOfItsRecord)
{
    Station.WritePng(QStringLiteral("photos/red.png"), 8, 4, 0xFFCC0000U);
    const QString page = DescribePage(Session.LayoutDb, Name, 1).Content;
    FieldValues values;
    values.Add(QStringLiteral("red"));
    const LedgerCard card;
    const auto drawn = DrawCardAsPrinted(page, values, card, Session.Pictures, {306, 486});
    EXPECT_EQ(drawn.Picture.pixel(40, 25), 0xFFCC0000U);
    EXPECT_TRUE(drawn.MissingPictures.isEmpty());
    FieldValues others;
    others.Add(QStringLiteral("Zoe"));
    EXPECT_THAT(DrawCardAsPrinted(page, others, card, Session.Pictures, {306, 486}).MissingPictures,
                testing::ElementsAre(QStringLiteral("\"Zoe.png\" is not in the folder")));
}

TEST_F(RecordPictures, WhatIsNotedOnACardStaysWhenItsJobIsDone)
{
    Station.Printers.Get(QStringLiteral("Card Printer"))
        .Outcomes.append({.HandedOver = true, .JobId = 4, .File = {}, .Reason = {}});
    AnnounceWarning(QStringLiteral("is missing"));
    ASSERT_TRUE(Arrive("<Zoe>"));
    NoteJobEnd(Session, 4, JobState::Done, {});
    EXPECT_EQ(Entry(1).State, LedgerState::Done);
    EXPECT_TRUE(Entry(1).Cards.at(0).Reason.startsWith(QStringLiteral("The picture")));
    EXPECT_TRUE(Entry(1).Reason.startsWith(QStringLiteral("The picture")));
}

} // namespace vantrel::test
