#include "drawing/PageCanvas.h"
#include "samples/DemoInstall.h"
#include "samples/FreshInstall.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LayoutCheck.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/Navigation.h"
#include "store/Recordset.h"
#include "support/FailureOf.h"
#include "support/TestSession.h"
#include <QDir>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {
const QString MemberCard = QStringLiteral("Member Card");

/// A station in the demonstration's folder, with a record.
class Demo : public ::testing::Test
{
protected:
    Demo() : Station({QStringLiteral("Other"), QStringLiteral("Vantrel PDF")})
    {
        MakeDemoFolder(Station.Folder.path());
        Session.LayoutDb.Open(LayoutDatabasePath(Station.Folder.path()));
        for (const auto& value : {QStringLiteral("Maximiliane Sternberg"),
                                  QStringLiteral("4829173"), QStringLiteral("Honorary")})
            Session.FieldValues.Add(value);
    }

    void Load(const QString& layout, std::int16_t page)
    {
        Session.CurrentParams.PageIndex = page;
        EXPECT_TRUE(LoadLayout(Session, layout));
        ReapplyFieldValues(Session);
    }

    /// Everything on the page is there and stands in its place.
    void ExpectWholePage()
    {
        EXPECT_TRUE(Session.CurrentParams.BackImg1Picture.HasHandle());
        for (const auto& object : Session.Document.Objects()) {
            if (!object->IsContent())
                continue;
            EXPECT_LE(object->Left + object->Width, Session.Document.Width);
            EXPECT_LE(object->Top + object->Height, Session.Document.Height);
            if (!object->IsLabel()) {
                EXPECT_TRUE(object->Picture.HasHandle());
                continue;
            }
            SCOPED_TRACE(object->Caption().toStdString());
            EXPECT_LE(PageCanvas::TextWidth(object->Caption(), object->Font()), object->Width);
            EXPECT_LE(PageCanvas::TextHeight(object->Caption(), object->Font()), object->Height);
        }
    }

    QStringList Captions()
    {
        QStringList captions;
        for (const auto& object : Session.Document.Objects())
            if (object->IsLabel() && object->IsContent())
                captions.append(object->Caption());
        return captions;
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};
} // namespace

TEST_F(Demo, TheMemberCardHasTwoLandscapePagesThatSpoolByThemselves)
{
    for (const std::int16_t page : {std::int16_t{1}, std::int16_t{2}}) {
        Load(MemberCard, page);
        const LayoutParamsRecord& params = Session.CurrentParams;
        EXPECT_EQ(params.PageCount, 2);
        EXPECT_EQ(params.PrinterDevice, QStringLiteral("Vantrel PDF"));
        EXPECT_EQ(params.PrinterOrientation, 2);
        EXPECT_EQ(params.PrinterCopies, 1);
        EXPECT_TRUE(params.AutoSpool);
        EXPECT_EQ(params.Encode, page == 1);
        EXPECT_EQ(params.Track1.isEmpty(), page == 2);
        EXPECT_EQ(Session.Document.Width, 4860.0F);
        EXPECT_EQ(Session.Document.Height, 3060.0F);
    }
}

TEST_F(Demo, ARecordFillsTheMemberCard)
{
    Load(MemberCard, 1);
    EXPECT_TRUE(Captions().contains(QStringLiteral("Maximiliane Sternberg")));
    EXPECT_TRUE(Captions().contains(QStringLiteral("Honorary")));
    EXPECT_TRUE(Captions().contains(QStringLiteral("1000")));
    const QStringList numbers = Captions().filter(QStringLiteral("No. 4829173"));
    ASSERT_EQ(numbers.size(), 1);
    EXPECT_EQ(numbers.first().size(), QStringLiteral("No. 48291730").size());
    Load(MemberCard, 2);
    EXPECT_EQ(Captions().filter(QStringLiteral("No. ")), numbers);
}

TEST_F(Demo, EveryTextStandsInItsBoxAndEveryPictureLoads)
{
    for (const std::int16_t page : {std::int16_t{1}, std::int16_t{2}}) {
        Load(MemberCard, page);
        ExpectWholePage();
    }
}

namespace {

struct SampleRow
{
    const char* Layout;
    std::int16_t Pages;
    float Width;
    const char* Record;
    const char* Shown;
};

constexpr float Long = 4860;
constexpr float Short = 3060;
constexpr SampleRow Samples[] = {
    {"Staff Badge", 1, Short, "Dr. Miriam Okafor|Paediatrics|20417", "No. 20417"},
    {"Gift Card", 2, Long, "50.00|6034-9821-0045-7710", "EUR 50.00"},
    {"Library Card", 1, Long, "Thomas Whitfield|2183400190", "21834001907"},
    {"Visitor Pass", 2, Long,
     "Elena Marsh|Brightwater Engineering|Jonas Keller, Room 214|21 November 2026",
     "Brightwater Engineering"},
    {"Transport Pass", 1, Long, "Sofia Lindqvist|1 - 4|31 December 2026",
     "Valid to 31 December 2026"},
};

FieldValues ValuesOf(const SampleRow& sample)
{
    FieldValues values;
    for (const QString& value : QString::fromLatin1(sample.Record).split(QLatin1Char('|')))
        values.Add(value);
    return values;
}

/// What the check finds on a layout, without a record and with one.
QStringList Found(Connection& store, const QString& layout, const FieldValues& record)
{
    QStringList found;
    for (const FieldValues& values : {FieldValues(), record}) {
        const Findings findings = CheckLayout(
            {.LayoutDb = store, .Name = layout, .Values = values, .CardSize = UsualCardSize});
        for (const Finding& finding : findings)
            found += finding.Where + QStringLiteral(": ") + finding.What;
    }
    return found;
}

} // namespace

TEST_F(Demo, TheCheckFindsNothingOnAnyOfItsLayouts)
{
    EXPECT_EQ(LayoutNames(Session.LayoutDb).size(), std::size(Samples) + 2);
    EXPECT_EQ(Found(Session.LayoutDb, MemberCard, Session.FieldValues), QStringList());
    EXPECT_EQ(Found(Session.LayoutDb, QStringLiteral("Visitor"), Session.FieldValues),
              QStringList());
    for (const SampleRow& sample : Samples) {
        EXPECT_EQ(Found(Session.LayoutDb, QString::fromLatin1(sample.Layout), ValuesOf(sample)),
                  QStringList())
            << sample.Layout;
    }
}

TEST_F(Demo, EveryCardOfTheGalleryHoldsItsSampleRecord)
{
    for (const SampleRow& sample : Samples) {
        SCOPED_TRACE(sample.Layout);
        Session.FieldValues = ValuesOf(sample);
        for (std::int16_t page = 1; page <= sample.Pages; ++page) {
            Load(QString::fromLatin1(sample.Layout), page);
            EXPECT_EQ(Session.CurrentParams.PageCount, sample.Pages);
            EXPECT_TRUE(Session.CurrentParams.AutoSpool);
            EXPECT_EQ(Session.Document.Width, sample.Width);
            ExpectWholePage();
            if (page == 1) {
                EXPECT_TRUE(Captions().contains(QString::fromLatin1(sample.Shown)));
            }
        }
    }
}

TEST_F(Demo, TheGiftCardsStripeGoesWithItsBack)
{
    Load(QStringLiteral("Gift Card"), 1);
    EXPECT_FALSE(Session.CurrentParams.Encode);
    Load(QStringLiteral("Gift Card"), 2);
    EXPECT_TRUE(Session.CurrentParams.Encode);
    EXPECT_EQ(Session.CurrentParams.PrinterType, PrinterTypeCode::Fargo);
}

TEST_F(Demo, TheTransportPassCounts)
{
    Load(QStringLiteral("Transport Pass"), 1);
    EXPECT_TRUE(Captions().contains(QStringLiteral("500000")));
}

TEST_F(Demo, APhotoPutInItsPlaceStandsOnTheNextBadge)
{
    const auto photoWidth = [this] {
        Load(QStringLiteral("Staff Badge"), 1);
        for (const auto& object : Session.Document.Objects())
            if (object->IsContent() && !object->IsLabel())
                return object->Picture.Image().width();
        return 0;
    };
    EXPECT_EQ(photoWidth(), 360);
    QImage other(30, 40, QImage::Format_RGB32);
    other.fill(Qt::darkGreen);
    ASSERT_TRUE(other.save(Station.Folder.filePath(QStringLiteral("Images/portrait.jpg"))));
    EXPECT_EQ(photoWidth(), 30);
}

TEST_F(Demo, TheVisitorCardHoldsOneTextAndWaitsForDynamicFields)
{
    Load(QStringLiteral("Visitor"), 1);
    EXPECT_EQ(Captions(), QStringList(QStringLiteral("VISITOR")));
    EXPECT_EQ(Session.CurrentParams.PageCount, 1);
    EXPECT_FALSE(Session.CurrentParams.AutoSpool);
    EXPECT_EQ(Session.CurrentParams.PrinterOrientation, 2);
}

TEST_F(Demo, EveryPageHasItsParameters)
{
    Recordset rows(Session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [LayoutParams]"));
    EXPECT_EQ(rows.RecordCount(), 10);
}

TEST(FreshInstall, AFolderIsMadeAndALaunchersFileIsKept)
{
    const QTemporaryDir folder;
    const QString inside = folder.filePath(QStringLiteral("new/station"));
    MakeProgramFolder(inside);
    QFile made(inside + QStringLiteral("/SessionStatus.ini"));
    ASSERT_TRUE(made.open(QIODevice::ReadOnly));
    EXPECT_EQ(made.readAll(), QByteArray("[Session 1]\r\nVisible=True\r\nActive=True\r\n"));

    QFile kept(folder.filePath(QStringLiteral("SessionStatus.ini")));
    ASSERT_TRUE(kept.open(QIODevice::ReadWrite));
    kept.write("[Session 2]\r\n");
    kept.close();
    MakeProgramFolder(folder.path());
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), QByteArray("[Session 2]\r\n"));
}

TEST(FreshInstall, AFolderWithADatabaseIsLeftAlone)
{
    const QTemporaryDir folder;
    QFile database(folder.filePath(QStringLiteral("Vantrel.dat")));
    ASSERT_TRUE(database.open(QIODevice::WriteOnly));
    database.write("mine");
    database.close();
    EXPECT_EQ(FailureOf([&] { MakeProgramFolder(folder.path()); }), FailureNumber::InvalidCall);
    EXPECT_EQ(FailureOf([&] { MakeDemoFolder(folder.path()); }), FailureNumber::InvalidCall);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList(QStringLiteral("Vantrel.dat")));
    ASSERT_TRUE(database.open(QIODevice::ReadOnly));
    EXPECT_EQ(database.readAll(), QByteArray("mine"));
}

TEST(FreshInstall, AFolderThatCannotBeMadeFails)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(
        FailureOf([&] { MakeProgramFolder(folder.filePath(QStringLiteral("file/station"))); }),
        FailureNumber::PathNotFound);
}

} // namespace vantrel::test
