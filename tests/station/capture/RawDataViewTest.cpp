#include "station/capture/RawDataView.h"
#include "base/CodePage.h"
#include "station/capture/Pipeline.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

TEST(HexText, ShowsEachCharacterAsItsBracketedCodeAndTwoBlanks)
{
    EXPECT_EQ(HexText(QStringLiteral("A\r\n")), QStringLiteral("[41]  [D]  [A]  "));
    EXPECT_EQ(HexText(QString()), QString());
    EXPECT_EQ(HexText(QStringLiteral("\t ~")), QStringLiteral("[9]  [20]  [7E]  "));
}

TEST(HexText, ShowsEveryByteByItsOwnCode)
{
    QByteArray bytes;
    QString wanted;
    for (int code = 0; code < 256; ++code) {
        bytes += static_cast<char>(code);
        wanted += QLatin1Char('[') + QString::number(code, 16).toUpper() + QStringLiteral("]  ");
    }
    EXPECT_EQ(HexText(FromCodePage(bytes)), wanted);
}

TEST(ViewRows, FollowTheLineEndsOfTheText)
{
    const ViewRows rows = CutIntoRows(QStringLiteral("a\r\nb\rc\n\nd"));
    EXPECT_EQ(rows.Text, QStringLiteral("a\nb\nc\n\nd"));
    EXPECT_EQ(rows.GoesOn, std::vector<bool>(5, false));
}

TEST(ViewRows, AnEmptyTextIsOneEmptyRow)
{
    EXPECT_EQ(CutIntoRows(QString()).Text, QString());
    EXPECT_EQ(CutIntoRows(QString()).GoesOn, std::vector<bool>({false}));
}

TEST(ViewRows, ALongLineIsCutBehindABlankAndLosesNothing)
{
    const QString hex = HexText(QString(3000, QLatin1Char('A')));
    const ViewRows rows = CutIntoRows(hex);
    const QStringList parts = rows.Text.split(QLatin1Char('\n'));
    ASSERT_EQ(parts.size(), 5);
    EXPECT_EQ(rows.GoesOn, std::vector<bool>({false, true, true, true, true}));
    EXPECT_EQ(parts.join(QString()), hex);
    for (const QString& part : parts) {
        EXPECT_LE(part.size(), LongestViewRow);
        EXPECT_TRUE(part.endsWith(QLatin1Char(' ')));
    }
}

TEST(ViewRows, ALineWithoutBlanksIsCutAtTheLimit)
{
    const ViewRows rows =
        CutIntoRows(QString(LongestViewRow + 1, QLatin1Char('x')) + QStringLiteral("\ny"));
    EXPECT_EQ(rows.Text, QString(LongestViewRow, QLatin1Char('x')) + QStringLiteral("\nx\ny"));
    EXPECT_EQ(rows.GoesOn, std::vector<bool>({false, true, false}));
}

TEST(ViewRows, ALineOfTheGreatestLengthStaysWhole)
{
    const QString line(LongestViewRow, QLatin1Char('x'));
    EXPECT_EQ(CutIntoRows(line).Text, line);
}

TEST(ClearInput, ThrowsAwayAPartialRecordAndKeepsTheRawText)
{
    TestSession station;
    vantrel::Session& session = station.Session;
    session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
    int records = 0;
    QObject::connect(&session.Face, &StationFace::RecordBegun, &session.Face, [&] { ++records; });
    TakeArrival(session, QStringLiteral("<A+B"), {});
    ClearInput(session.InputBuffer);
    EXPECT_EQ(session.LastRawData, QStringLiteral("<A+B"));
    // The end of the record that was thrown away completes nothing.
    TakeArrival(session, QStringLiteral("+C>"), {});
    EXPECT_EQ(records, 0);
    EXPECT_EQ(session.InputBuffer.Text(), QStringLiteral("+C>"));
}

} // namespace
} // namespace vantrel::test
