#include "base/Profile.h"
#include "station/print/EncodeData.h"
#include "station/print/PrintCard.h"
#include "station/print/RealStation.h"
#include "support/FailureOf.h"
#include "support/PdfReading.h"
#include "support/PrivateCups.h"
#include <gtest/gtest.h>

// The stripe as options of the print job, and the calibration of a printer.

namespace vantrel::test {
namespace {

const QString TwoFields = QStringLiteral("DAT1~SEP~DAT2");
const QString Carrying = QStringLiteral("Card Printer");

/// The operations of one track on a printer that takes some tracks in job options.
class TrackInAnOption : public ::testing::Test
{
protected:
    TrackInAnOption() { SetRecord(Station.Session, {QStringLiteral("a1"), QStringLiteral("b2")}); }

    QStringList Sent(std::int32_t printerType, int track, const QString& formula = TwoFields)
    {
        Station.Session.CurrentParams.PrinterType = printerType;
        Station.Printers.Operations.clear();
        Failed = FailureOf([&] {
            EncodeData(Station.Session.Printers, Station.Session.CurrentParams.PrinterType,
                       Station.Session.FieldValues, formula, track);
        });
        return Station.Printers.Operations;
    }

    int Failed = 0;
    TestSession Station;
};

struct LineRow
{
    std::int32_t PrinterType;
    int Track;
    const char* Stripe;
};

/// A station whose queue has a section of its own in the settings file.
class StripeInJobOptions : public ::testing::Test
{
protected:
    StripeInJobOptions() : m_queue(QStringLiteral("Cards"))
    {
        m_cups.AddQueue(m_queue);
        m_station.emplace(m_queue);
        SetRecord(Session(), {QStringLiteral("1234"), QStringLiteral("5678")});
        Session().CurrentParams.PrinterType = 1;
        Session().CurrentParams.Track2 = TwoFields;
        AddText(Session(), QStringLiteral("Anna"), {.Top = 3000});
        SavePage(Session());
    }

    vantrel::Session& Session() { return m_station->Session; }

    void Set(const char* key, const QString& value, const QString& printer = {})
    {
        const QString section =
            QStringLiteral("Printer ") + (printer.isEmpty() ? m_queue : printer);
        ASSERT_TRUE(WriteProfileValue(Session().PathInFolder(SettingsFileName), section,
                                      QLatin1StringView(key), value));
    }
    void SetChannel()
    {
        Set("StripeChannel", QStringLiteral("option"));
        Set("StripeOption1", QStringLiteral("card-track-1"));
        Set("StripeOption2", QStringLiteral("card-track-2"));
        Set("StripeOption3", QStringLiteral("card-track-3"));
    }
    /// Stores what the test changed on the page and prints it. @return the job of that number
    PrivateCups::PrintedJob Printed(int number = 1)
    {
        SavePage(Session());
        PrintCard(Session());
        return m_cups.WaitForJobs(number).at(number - 1);
    }
    /// The options of a job that are named like a track's.
    static QStringList Tracks(const PrivateCups::PrintedJob& job)
    {
        return job.Options.split(QLatin1Char(' ')).filter(QStringLiteral("card-track-"));
    }
    static QStringList Words(const PrivateCups::PrintedJob& job)
    {
        QStringList words;
        for (const PdfWord& word : WordsOfPdf(job.PdfPath))
            words.append(word.Text);
        return words;
    }

    PrivateCups m_cups;
    const QString m_queue;
    std::optional<RealStation> m_station;
};

} // namespace

TEST_F(TrackInAnOption, IsTheLineOfItsFamilyAndForMagneticFontsTheDataAlone)
{
    constexpr std::array rows = {
        LineRow{1, 1, "~1%A1^B2?"},      LineRow{1, 2, "~2;A1=B2?"},
        LineRow{2, 1, "${1A1=B2}$"},     LineRow{2, 3, "${3A1=B2}$"},
        LineRow{4, 1, "A1^B2"},          LineRow{4, 2, "A1=B2"},
        LineRow{5, 3, "A1=B2"},          LineRow{11, 1, "~@1,1,5,A1^B2"},
        LineRow{11, 2, "~@1,2,5,A1=B2"},
    };
    Station.Printers.Get(Carrying).CarriedTracks = {1, 2, 3};
    int walked = 0;
    for (const LineRow& row : rows) {
        EXPECT_EQ(Sent(row.PrinterType, row.Track),
                  QStringList(QStringLiteral("Stripe(%1, \"%2\")")
                                  .arg(QString::number(row.Track), QLatin1StringView(row.Stripe))));
        ++walked;
    }
    EXPECT_EQ(walked, 9);
}

TEST_F(TrackInAnOption, IsNotSentWithoutACharacter)
{
    Station.Printers.Get(Carrying).CarriedTracks = {1, 2, 3};
    for (const std::int32_t type : {1, 2, 4, 5, 11}) {
        EXPECT_EQ(Sent(type, 1, QString()), QStringList());
        EXPECT_EQ(Failed, 0);
    }
}

TEST_F(TrackInAnOption, IsEvaluatedAndNotSentForAFamilyWithoutAStripe)
{
    Station.Printers.Get(Carrying).CarriedTracks = {1, 2, 3};
    EXPECT_EQ(Sent(9, 1), QStringList());
    EXPECT_EQ(Sent(9, 1, QStringLiteral("DAT3")), QStringList());
    EXPECT_EQ(Failed, FailureNumber::SubscriptOutOfRange);
}

TEST_F(TrackInAnOption, IsNotSentInPartWhenItsFormulaFails)
{
    Station.Printers.Get(Carrying).CarriedTracks = {1, 2, 3};
    for (const std::int32_t type : {1, 2, 4, 5, 11}) {
        EXPECT_EQ(Sent(type, 1, QStringLiteral("DAT1~DAT3")), QStringList());
        EXPECT_EQ(Failed, FailureNumber::SubscriptOutOfRange);
    }
}

TEST_F(TrackInAnOption, LeavesTheOtherTracksOnThePage)
{
    Station.Printers.Get(Carrying).CarriedTracks = {2};
    EXPECT_EQ(Sent(1, 1), QStringList(QStringLiteral("Print(\"~1%A1^B2?\")")));
    EXPECT_EQ(Sent(1, 2), QStringList(QStringLiteral("Stripe(2, \"~2;A1=B2?\")")));
    EXPECT_EQ(Sent(5, 3).size(), 5);
}

TEST_F(StripeInJobOptions, WithoutASectionTheStripeIsTextOnThePage)
{
    const auto job = Printed();
    EXPECT_EQ(Words(job), (QStringList{QStringLiteral("~2;1234=5678?"), QStringLiteral("Anna")}));
    EXPECT_TRUE(Tracks(job).isEmpty());
}

TEST_F(StripeInJobOptions, IsSentInTheOptionOfItsTrackAndNotOnThePage)
{
    SetChannel();
    const auto job = Printed();
    EXPECT_EQ(Words(job), QStringList(QStringLiteral("Anna")));
    EXPECT_EQ(Tracks(job), QStringList(QStringLiteral("card-track-2=~2%3B1234%3D5678%3F")));
}

TEST_F(StripeInJobOptions, IsTheEncodedLineOfEachPrinterType)
{
    constexpr std::array rows = {
        LineRow{1, 2, "~2%3B1234%3D5678%3F"},
        LineRow{2, 2, "%24%7B21234%3D5678%7D%24"},
        LineRow{11, 2, "~%401%2C2%2C9%2C1234%3D5678"},
        LineRow{4, 2, "1234%3D5678"},
        LineRow{5, 2, "1234%3D5678"},
    };
    SetChannel();
    int walked = 0;
    for (const LineRow& row : rows) {
        Session().CurrentParams.PrinterType = row.PrinterType;
        EXPECT_EQ(Tracks(Printed(++walked)),
                  QStringList(QStringLiteral("card-track-2=") + QLatin1StringView(row.Stripe)))
            << row.PrinterType;
    }
    EXPECT_EQ(walked, 5);
}

TEST_F(StripeInJobOptions, KeepsEveryCharacterThroughItsEncoding)
{
    SetChannel();
    const QString data = QString::fromUtf8("A 1\"'\\,=%&+#é€{}");
    SetRecord(Session(), {data});
    Session().CurrentParams.PrinterType = 5;
    // A padded field is neither cleaned nor put into upper case.
    Session().CurrentParams.Track2 = QStringLiteral("FD ^20^1^1");
    const QStringList tracks = Tracks(Printed());
    ASSERT_EQ(tracks.size(), 1);
    const QByteArray value = tracks[0].section(QLatin1Char('='), 1).toLatin1();
    EXPECT_EQ(QString::fromUtf8(QByteArray::fromPercentEncoding(value)), data.leftJustified(20));
}

TEST_F(StripeInJobOptions, KeepsWordsThatTheServerWouldReadAsSwitches)
{
    SetChannel();
    Session().CurrentParams.PrinterType = 5;
    Session().CurrentParams.Track1 = QStringLiteral("true");
    Session().CurrentParams.Track2 = QStringLiteral("false");
    Session().CurrentParams.Track3 = QStringLiteral("yes");
    EXPECT_EQ(Tracks(Printed()), (QStringList{QStringLiteral("card-track-1=%54RUE"),
                                              QStringLiteral("card-track-2=%46ALSE"),
                                              QStringLiteral("card-track-3=YES")}));
}

TEST_F(StripeInJobOptions, IsNotSentWithTheNextCard)
{
    SetChannel();
    EXPECT_EQ(Tracks(Printed()).size(), 1);
    SetRecord(Session(), {});
    EXPECT_TRUE(Tracks(Printed(2)).isEmpty());
}

TEST_F(StripeInJobOptions, OfARefusedCardIsForgotten)
{
    SetChannel();
    m_cups.Reject(m_queue);
    PrintCard(Session());
    m_cups.Accept(m_queue);
    SetRecord(Session(), {});
    EXPECT_TRUE(Tracks(Printed()).isEmpty());
}

TEST_F(StripeInJobOptions, StaysOnThePageForATrackWithoutAnOptionOfItsOwn)
{
    SetChannel();
    Session().CurrentParams.Track1 = Session().CurrentParams.Track3 = QStringLiteral("DAT1");
    int number = 0;
    for (const char* name : {"", "has blank", "has=sign", "card-track-2"}) {
        Set("StripeOption3", QLatin1StringView(name));
        const auto job = Printed(++number);
        EXPECT_EQ(Tracks(job).size(), 2) << name;
        EXPECT_EQ(Words(job), (QStringList{QStringLiteral("~3;1234?"), QStringLiteral("Anna")}))
            << name;
    }
}

TEST_F(StripeInJobOptions, ALineTooLongForAnOptionIsLeftOutLikeATrackThatFails)
{
    SetChannel();
    SetRecord(Session(), {QString(300, QLatin1Char('1')), QStringLiteral("5678")});
    Session().CurrentParams.Track1 = QStringLiteral("DAT2");
    const auto job = Printed();
    EXPECT_EQ(Words(job), QStringList(QStringLiteral("Anna")));
    EXPECT_EQ(Tracks(job), QStringList(QStringLiteral("card-track-1=~1%255678%3F")));
}

TEST_F(StripeInJobOptions, FollowsAChangeOfTheFileAtTheNextCard)
{
    EXPECT_TRUE(Tracks(Printed()).isEmpty());
    SetChannel();
    EXPECT_EQ(Tracks(Printed(2)).size(), 1);
    Set("StripeChannel", QStringLiteral("page"));
    EXPECT_TRUE(Tracks(Printed(3)).isEmpty());
}

TEST_F(StripeInJobOptions, OffsetsMoveAllThatIsDrawn)
{
    const auto place = [](const PrivateCups::PrintedJob& job, const char* text) {
        const PdfWord word = WordOfPdf(job.PdfPath, QLatin1StringView(text));
        return QPointF(word.XMin, word.YMin);
    };
    const auto before = Printed();
    Set("OffsetX", QStringLiteral("200"));
    Set("OffsetY", QStringLiteral("-100"));
    const auto after = Printed(2);
    for (const char* text : {"Anna", "~2;1234=5678?"}) {
        const QPointF moved = place(after, text) - place(before, text);
        EXPECT_NEAR(moved.x(), 10, 0.01) << text;
        EXPECT_NEAR(moved.y(), -5, 0.01) << text;
    }
}

TEST_F(StripeInJobOptions, TheBuiltInPrinterHasItsOffsetsAndKeepsTheStripeOnThePage)
{
    const QString pdf = QStringLiteral("Vantrel PDF");
    Set("StripeChannel", QStringLiteral("option"), pdf);
    Set("StripeOption2", QStringLiteral("card-track-2"), pdf);
    Set("OffsetX", QStringLiteral("-60"), pdf);
    Session().CurrentParams.PrinterDevice = pdf;
    SavePage(Session());
    PrintCard(Session());
    const QString card = m_station->CardPath(1);
    EXPECT_EQ(WordOfPdf(card, QStringLiteral("~2;1234=5678?")).Text.size(), 13);
    EXPECT_NEAR(WordOfPdf(card, QStringLiteral("Anna")).XMin, (200.0 - 60.0) / 20, 0.01);
}

} // namespace vantrel::test
