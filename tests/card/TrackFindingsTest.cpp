#include "card/TrackFindings.h"
#include "card/FieldValues.h"
#include "card/LayoutParamsRecord.h"
#include "support/Print.h"
#include <gtest/gtest.h>

// Data that the standard forbids on a magnetic track.

namespace vantrel::test {
namespace {

class TrackFindings : public ::testing::Test
{
protected:
    TrackFindings() { Params.PrinterType = PrinterTypeCode::Fargo; }

    QString& Formula(int track)
    {
        return track == 1 ? Params.Track1 : track == 2 ? Params.Track2 : Params.Track3;
    }
    QStringList Told() const
    {
        QStringList told;
        for (const Finding& finding : FindingsOnTracks(Params, Values))
            told.append(RowOf(finding.Kind).Word + QStringLiteral(": ") + finding.Where);
        return told;
    }

    LayoutParamsRecord Params;
    FieldValues Values;
};

struct LengthRow
{
    int Track;
    int Longest;
};

class TrackLength : public TrackFindings, public ::testing::WithParamInterface<LengthRow>
{};

} // namespace

TEST_P(TrackLength, MayFillTheTrackWithWhatThePrinterAdds)
{
    const auto [track, longest] = GetParam();
    Formula(track) = QString(longest - AddedToTrack, QLatin1Char('7'));
    EXPECT_EQ(Told(), QStringList());
    Formula(track) += QLatin1Char('7');
    ASSERT_EQ(Told(), QStringList(QStringLiteral("track-length: Track %1").arg(track)));
    EXPECT_EQ(FindingsOnTracks(Params, Values).front().Detail,
              QStringLiteral("%1 characters of data").arg(longest - AddedToTrack + 1));
}

INSTANTIATE_TEST_SUITE_P(OfTheStandard, TrackLength,
                         ::testing::Values(LengthRow{1, 79}, LengthRow{2, 40}, LengthRow{3, 107}),
                         [](const auto& row) { return "Track" + std::to_string(row.param.Track); });

TEST_F(TrackFindings, AllowLettersOnTrackOneAlone)
{
    Params.Track1 = QStringLiteral("B5412~SEP~DOE/JANE M.~SEP~2712");
    Params.Track2 = QStringLiteral("5412~SEP~2712");
    EXPECT_EQ(Told(), QStringList());
    Params.Track2 = QStringLiteral("5412 DOE");
    Params.Track3 = QStringLiteral("01-2");
    EXPECT_EQ(Told(), QStringList({QStringLiteral("track-characters: Track 2"),
                                   QStringLiteral("track-characters: Track 3")}));
    EXPECT_EQ(FindingsOnTracks(Params, Values).front().Detail, QStringLiteral(" DOE"));
}

TEST_F(TrackFindings, NameEachForbiddenCharacterOnce)
{
    Params.Track1 = QStringLiteral("DAT1");
    Values.Add(QStringLiteral("Zo\u00eb Zo\u00eb & O'Neil"));
    ASSERT_EQ(Told(), QStringList(QStringLiteral("track-characters: Track 1")));
    const Finding finding = FindingsOnTracks(Params, Values).front();
    EXPECT_EQ(finding.Detail, QStringLiteral("\u00cb&'"));
    EXPECT_FALSE(finding.What.contains(QStringLiteral("\u00cb")));
}

TEST_F(TrackFindings, TakeSmallLettersAsThePrinterGetsThem)
{
    Params.Track1 = QStringLiteral("doe");
    EXPECT_EQ(Told(), QStringList());
}

TEST_F(TrackFindings, GoByTheSeparatorOfThePrinter)
{
    // This family puts "=" on track 1 too, where the standard has none.
    Params.Track1 = QStringLiteral("A~SEP~B");
    EXPECT_EQ(Told(), QStringList());
    Params.PrinterType = PrinterTypeCode::Eltron;
    EXPECT_EQ(Told(), QStringList(QStringLiteral("track-characters: Track 1")));
}

TEST_F(TrackFindings, TellOfAFormulaThatCannotBeEvaluated)
{
    Params.Track2 = QStringLiteral("12~DAT3");
    EXPECT_EQ(Told(), QStringList()) << "without a record nobody knows";
    Values.Add(QStringLiteral("1"));
    ASSERT_EQ(Told(), QStringList(QStringLiteral("track-impossible: Track 2")));
    for (int i = 0; i < 2; ++i)
        Values.Add(QStringLiteral("3"));
    EXPECT_EQ(Told(), QStringList());
}

TEST_F(TrackFindings, AreNoneForAPrinterWithoutAStripe)
{
    Params.Track2 = QStringLiteral("letters");
    Params.PrinterType = PrinterTypeCode::Plain;
    EXPECT_EQ(Told(), QStringList());
}

TEST_F(TrackFindings, TakeAValueOfAMillionCharacters)
{
    Params.Track1 = QStringLiteral("DAT1");
    Values.Add(QString(1'000'000, QChar(0xe9)));
    EXPECT_EQ(Told(), QStringList({QStringLiteral("track-characters: Track 1"),
                                   QStringLiteral("track-length: Track 1")}));
}

} // namespace vantrel::test
